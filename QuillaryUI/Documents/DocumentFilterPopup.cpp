#include "QuillaryUI/Documents/DocumentFilterPopup.h"

#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientPicker.h"

#include <QComboBox>
#include <QFormLayout>
#include <QSignalBlocker>

#include <algorithm>

namespace Quillary {

namespace {

constexpr int border = 16;
constexpr int fieldWidth = 240;
constexpr int dueDays[] = {7, 14, 30};

/// What is asked for stays among the choices, whatever became of it in the library.
template <class Value>
void choose(QComboBox& box, const Value& value, const QString& label)
{
    if (box.findData(value) < 0) {
        box.addItem(label, value);
    }
    box.setCurrentIndex(box.findData(value));
}

} // namespace

QString dueWithinText(int days, DocumentKind kind)
{
    if (kind == DocumentKind::quote) {
        return days == 0   ? DocumentFilterPopup::tr("Ends today")
               : days == 1 ? DocumentFilterPopup::tr("Ends by tomorrow")
                           : DocumentFilterPopup::tr("Ends within %1 days").arg(days);
    }
    return days == 0   ? DocumentFilterPopup::tr("Due today")
           : days == 1 ? DocumentFilterPopup::tr("Due by tomorrow")
                       : DocumentFilterPopup::tr("Due within %1 days").arg(days);
}

DocumentFilterPopup::DocumentFilterPopup(LibraryAccess& library, DocumentKind kind, QWidget* parent)
    : QFrame(parent, Qt::Popup)
    , m_library(library)
    , m_kind(kind)
    , m_client(new ClientPicker(library, this, ClientPicker::Offers::existing))
    , m_form(new QFormLayout(this))
{
    setObjectName(QStringLiteral("filterPopup"));
    setAccessibleName(tr("More filters"));
    setFrameShape(QFrame::StyledPanel);
    m_form->setContentsMargins(border, border, border, border);
    m_form->setSpacing(border / 2);
    m_client->setObjectName(QStringLiteral("filterClient"));
    m_client->setAccessibleName(tr("Client"));
    m_client->setMinimumWidth(fieldWidth);
    m_client->setClearButtonEnabled(true);
    m_form->addRow(tr("Client"), m_client);
    m_project = addBox(*m_form, tr("Project"), "filterProject");
    m_tag = addBox(*m_form, tr("Tag"), "filterTag");
    if (kind != DocumentKind::creditNote) {
        m_due = addBox(*m_form, kind == DocumentKind::quote ? tr("Valid until") : tr("Due"), "filterDue");
    }
    m_currency = addBox(*m_form, tr("Currency"), "filterCurrency");
    connect(m_client, &ClientPicker::picked, this, &DocumentFilterPopup::take);
}

QComboBox* DocumentFilterPopup::addBox(QFormLayout& form, const QString& label, const char* name)
{
    auto* box = new QComboBox(this);
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(label);
    box->setMinimumWidth(fieldWidth);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    form.addRow(label, box);
    connect(box, &QComboBox::activated, this, &DocumentFilterPopup::take);
    return box;
}

void DocumentFilterPopup::open(const DocumentView& view, const QWidget& anchor)
{
    if (!m_library.isOpen()) {
        return;
    }
    m_view = view;
    fill();
    show(view);
    adjustSize();
    const QPoint corner = anchor.mapToGlobal(QPoint(anchor.width() - width(), anchor.height() + 4));
    move(std::max(corner.x(), window()->x() + border), corner.y());
    QFrame::show();
    m_client->setFocus(Qt::PopupFocusReason);
}

void DocumentFilterPopup::fill()
{
    Context& context = m_library.context();
    m_project->clear();
    m_project->addItem(tr("Any project"));
    m_project->addItem(tr("No project"), qlonglong(0));
    for (const Project* project : context.fetch<Project>("TRUE ORDER BY isArchived, name, id")) {
        m_project->addItem(project->isArchived ? tr("%1 (archived)").arg(text(project->name)) : text(project->name),
                           qlonglong(project->ref.key()));
    }
    m_tag->clear();
    m_tag->addItem(tr("Any tag"));
    for (const std::string& tag : usedTags(context, m_kind)) {
        m_tag->addItem(text(tag), text(tag));
    }
    if (m_due != nullptr) {
        m_due->clear();
        m_due->addItem(tr("Any day"));
        for (const int days : dueDays) {
            m_due->addItem(dueWithinText(days, m_kind), days);
        }
    }
    m_currency->clear();
    m_currency->addItem(tr("Any currency"));
    for (const std::string& code : usedCurrencies(context, m_kind)) {
        m_currency->addItem(text(code), text(code));
    }
    const bool hasChoice = m_currency->count() > 2 || !m_view.currencyCode.empty();
    m_currency->setVisible(hasChoice);
    m_form->labelForField(m_currency)->setVisible(hasChoice);
}

void DocumentFilterPopup::show(const DocumentView& view)
{
    m_client->setClient(view.client.value_or(0));
    if (view.project) {
        choose(*m_project, qlonglong(*view.project), tr("A project that is gone"));
    }
    if (!view.tag.empty()) {
        choose(*m_tag, text(view.tag), text(view.tag));
    }
    if (view.dueWithinDays && m_due != nullptr) {
        choose(*m_due, *view.dueWithinDays, dueWithinText(*view.dueWithinDays, m_kind));
    }
    if (!view.currencyCode.empty()) {
        choose(*m_currency, text(view.currencyCode), text(view.currencyCode));
    }
}

void DocumentFilterPopup::take()
{
    m_view.client = m_client->client() == 0 ? std::nullopt : std::optional(DocumentRows::Key(m_client->client()));
    const QVariant project = m_project->currentData();
    m_view.project = project.isValid() ? std::optional(DocumentRows::Key(project.toLongLong())) : std::nullopt;
    m_view.tag = utf8(m_tag->currentData().toString());
    const QVariant days = m_due == nullptr ? QVariant() : m_due->currentData();
    m_view.dueWithinDays = days.isValid() ? std::optional(days.toInt()) : std::nullopt;
    m_view.currencyCode = utf8(m_currency->currentData().toString());
    Q_EMIT picked(m_view);
}

} // namespace Quillary
