#include "QuillaryUI/Documents/MakeRecurringSheet.h"

#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Schedules/RecurringSetup.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/RecurringForm.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QLineEdit>
#include <QStringList>

#include <fmt/format.h>

namespace Quillary {

namespace {

constexpr int mostOffered = 500; ///< an older one is made recurring where it stands
constexpr const char* repeatable = "kindRaw = 0 AND client <> 0";

} // namespace

MakeRecurringSheet::MakeRecurringSheet(LibraryAccess& library, std::int64_t invoice, QWidget* host)
    : Sheet(invoice == 0 ? tr("New Recurring Invoice") : tr("Make Recurring"), tr("Make Recurring"), host)
    , m_library(library)
    , m_invoice(invoice)
    , m_invoices(invoice == 0 ? new QComboBox(this) : nullptr)
    , m_form(new RecurringForm(
          library, *this, [this](const RecurringChoices& choices) -> const Document& { return repeat(choices); }))
{
    if (m_invoices != nullptr) {
        addInvoices();
    }
    onAnswer([this] { return make(); });
}

bool MakeRecurringSheet::isPossible(const LibraryAccess& library)
{
    return library.isOpen() && library.context().first<Document>(repeatable) != nullptr;
}

/// The latest, beginning with the last; a few letters of number, client or title find an older one.
void MakeRecurringSheet::addInvoices()
{
    m_invoices->setObjectName(QStringLiteral("recurringLike"));
    m_invoices->setEditable(true);
    m_invoices->setInsertPolicy(QComboBox::NoInsert);
    m_invoices->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_invoices->completer()->setCompletionMode(QCompleter::PopupCompletion);
    m_invoices->completer()->setFilterMode(Qt::MatchContains);
    Context& context = m_library.context();
    for (const Document* invoice : context.fetch<Document>(
             fmt::format("{} ORDER BY issueDate DESC, id DESC LIMIT {}", repeatable, mostOffered))) {
        const Client* client = context.find(invoice->client);
        QStringList words{invoice->number.empty() ? CoreText::sentence(documentName(*invoice)) : text(invoice->number)};
        if (client != nullptr) {
            words.push_back(text(displayName(*client)));
        }
        if (!invoice->title.empty()) {
            words.push_back(text(invoice->title));
        }
        m_invoices->addItem(words.join(QStringLiteral(" · ")), qlonglong(invoice->ref.key()));
    }
    m_invoice = m_invoices->currentData().toLongLong();
    connect(m_invoices, &QComboBox::currentIndexChanged, this, [this] {
        m_invoice = m_invoices->currentData().toLongLong();
        m_isMistyped = false;
        m_form->refresh();
    });
    connect(m_invoices->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        const QString chosen = m_invoices->itemText(m_invoices->currentIndex());
        m_isMistyped = m_isMistyped || m_invoices->currentText() != chosen;
        m_invoices->setEditText(chosen);
    });
    form().insertRow(0, tr("Like the invoice"), m_invoices);
}

void MakeRecurringSheet::begin()
{
    if (m_invoices != nullptr) {
        setExplanation(
            tr("Invoices with the contents of one that is there are made by themselves. It stays as it is; what "
               "the new ones hold can be changed afterwards."));
    } else if (const Document* invoice = m_library.context().find(Ref<Document>(m_invoice))) {
        setExplanation(
            tr("Invoices with the contents of %1 are made by themselves, beginning with the next one. %1 stays as "
               "it is.")
                .arg(CoreText::sentence(documentName(*invoice))));
    }
    m_form->refresh();
    open(m_invoices != nullptr ? m_invoices : m_form->firstField());
    if (m_invoices != nullptr) {
        m_invoices->lineEdit()->selectAll();
    }
}

const Document& MakeRecurringSheet::repeat(const RecurringChoices& choices) const
{
    const Document* invoice = m_library.context().find(Ref<Document>(m_invoice));
    if (invoice == nullptr) {
        throw UserError(utf8(tr("The invoice isn't there any more.")));
    }
    const CalendarDate today = m_library.formats().calendar().date(m_library.now());
    return RecurringSetup::create(m_library.desk(), *invoice, choices, today);
}

/// The Enter that ends the typing answers the sheet, too: not with an invoice that nobody has seen.
std::optional<QString> MakeRecurringSheet::make()
{
    if (std::exchange(m_isMistyped, false)) {
        return tr("No invoice is called that. Look at the one that is chosen now, and answer again.");
    }
    std::int64_t key = 0;
    auto refusal = m_form->carryOut(key);
    if (!refusal) {
        Q_EMIT made(key);
    }
    return refusal;
}

} // namespace Quillary
