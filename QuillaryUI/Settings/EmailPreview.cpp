#include "QuillaryUI/Settings/EmailPreview.h"

#include "QuillaryCore/Billing/Reminders.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryCore/Model/DocumentStatus.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

#include <string>

namespace Quillary {

namespace {

constexpr int gap = 8;
constexpr int leastHeight = 264;

DocumentKind documentKind(EmailKind kind)
{
    switch (kind) {
    case EmailKind::quote:
        return DocumentKind::quote;
    case EmailKind::creditNote:
        return DocumentKind::creditNote;
    case EmailKind::invoice:
    case EmailKind::reminder:
    case EmailKind::secondReminder:
    case EmailKind::finalNotice:
        break;
    }
    return DocumentKind::invoice;
}

} // namespace

EmailPreview::EmailPreview(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_matter(new QComboBox(this))
    , m_subject(new QLabel(this))
    , m_body(new QLabel(this))
{
    build();
    connect(m_matter, &QComboBox::activated, this, [this] {
        readValues();
        Q_EMIT changed();
    });
}

void EmailPreview::build()
{
    m_matter->setObjectName(QStringLiteral("emailMatter"));
    m_matter->setAccessibleName(tr("What the preview is filled with"));
    m_matter->setFocusPolicy(Qt::StrongFocus);
    m_matter->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* sheet = new QFrame(this);
    sheet->setObjectName(QStringLiteral("card"));
    sheet->setStyleSheet(QStringLiteral("QFrame#card { background: palette(base); border: 1px solid palette(midlight);"
                                        " border-radius: 8px; }"));
    sheet->setMinimumHeight(leastHeight);
    QFont bold = m_subject->font();
    bold.setBold(true);
    m_subject->setFont(bold);
    m_subject->setObjectName(QStringLiteral("emailShownSubject"));
    m_body->setObjectName(QStringLiteral("emailShownBody"));
    auto* lines = new QVBoxLayout(sheet);
    lines->setContentsMargins(2 * gap, 2 * gap, 2 * gap, 2 * gap);
    lines->setSpacing(2 * gap);
    for (QLabel* label : {m_subject, m_body}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        lines->addWidget(label);
    }
    lines->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(m_matter);
    column->addWidget(sheet);
    column->addStretch();
}

void EmailPreview::begin(EmailKind kind, DocumentLanguage language)
{
    m_kind = kind;
    m_language = language;
    fillMatters();
}

/// The newest document that such an email could go with. Null: there is none yet.
const Document* EmailPreview::newest() const
{
    Context& context = m_library.context();
    const auto kindRaw = static_cast<std::int16_t>(documentKind(m_kind));
    const std::string languageCode(code(m_language));
    if (!reminderLevel(m_kind)) {
        return context.first<Document>(
            "kindRaw = ? AND languageCode = ? ORDER BY issueDate DESC, id DESC", kindRaw, languageCode);
    }
    return context.first<Document>("kindRaw = ? AND statusRaw = ? AND languageCode = ? AND cachedTotalMinorUnits + "
                                   "cachedLateFeesMinorUnits > cachedPaidMinorUnits ORDER BY issueDate DESC, id DESC",
                                   kindRaw,
                                   static_cast<std::int16_t>(DocumentStatus::sent),
                                   languageCode);
}

void EmailPreview::fillMatters()
{
    const bool wasReal = m_matter->currentIndex() > 0;
    m_matter->clear();
    m_matter->addItem(tr("Shown with made-up values"), QVariant::fromValue<qint64>(0));
    if (const Document* document = newest()) {
        m_matter->addItem(tr("Shown with %1").arg(CoreText::sentence(documentName(*document))),
                          QVariant::fromValue<qint64>(document->ref.key()));
    }
    m_matter->setCurrentIndex(wasReal ? m_matter->count() - 1 : 0);
}

EmailDraft::Values EmailPreview::valuesOf(const Document& document) const
{
    Context& context = m_library.context();
    const Business& business = m_library.business();
    const Calendar& calendar = m_library.formats().calendar();
    const Instant today = calendar.storedDay(calendar.date(m_library.now()));
    EmailDraft::Matter matter{.document = document, .business = business, .recipientName = {}, .reminder = nullptr};
    ReminderNotice notice{.details = {}, .date = today};
    if (const auto level = reminderLevel(m_kind)) {
        notice.details = reminderOfLevel(context, document, business, *level, today, calendar);
        matter.reminder = &notice;
    }
    return EmailDraft::values(context, matter, m_library.now(), calendar);
}

void EmailPreview::readValues()
{
    if (!m_library.isOpen()) {
        return; // what was read stays
    }
    m_samples = EmailDraft::sampleValues(
        m_kind, m_language, m_library.business(), m_library.now(), m_library.formats().calendar());
    const Document* document = m_library.context().find(Ref<Document>(m_matter->currentData().toLongLong()));
    m_values = document == nullptr ? m_samples : valuesOf(*document);
}

void EmailPreview::showText(const EmailText& typed)
{
    const EmailText filled = EmailDraft::fill(typed, m_values);
    m_subject->setText(text(filled.subject));
    m_body->setText(text(filled.body));
}

QStringList EmailPreview::unknown(const EmailText& typed) const
{
    QStringList words;
    for (const std::string& word : EmailDraft::unfilled(typed, m_samples)) {
        words.push_back(text(word));
    }
    return words;
}

} // namespace Quillary
