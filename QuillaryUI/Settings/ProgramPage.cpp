#include "QuillaryUI/Settings/ProgramPage.h"

#include "QuillaryUI/Settings/ProgramOptions.h"

#include <QCheckBox>
#include <QLabel>
#include <QSystemTrayIcon>
#include <QVBoxLayout>

namespace Quillary {

namespace {

constexpr int gap = 8;

QLabel* hint(const QString& words, QWidget* parent)
{
    auto* label = new QLabel(words, parent);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace

ProgramPage::ProgramPage(QWidget* parent)
    : Section(parent)
    , m_tray(new QCheckBox(tr("Closing the window leaves Quillary in the tray"), this))
    , m_noTray(hint(tr("This desktop has no tray now, so closing the window ends Quillary."), this))
    , m_notices(new QCheckBox(tr("Show notices of the desktop"), this))
{
    setObjectName(QStringLiteral("programPage"));
    m_tray->setObjectName(QStringLiteral("staysInTray"));
    m_notices->setObjectName(QStringLiteral("showsNotices"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(m_tray);
    column->addWidget(hint(tr("There it goes on serving assistants and making recurring invoices."), this));
    column->addWidget(m_noTray);
    column->addSpacing(gap);
    column->addWidget(m_notices);
    column->addWidget(
        hint(tr("Of invoices that are due today or overdue since the last notice, and of recurring invoices "
                "that were made. None while Quillary is locked."),
             this));
    connect(m_tray, &QCheckBox::toggled, this, &ProgramOptions::setStaysInTray);
    connect(m_notices, &QCheckBox::toggled, this, &ProgramOptions::setShowsNotices);
}

void ProgramPage::showEvent(QShowEvent* event)
{
    Section::showEvent(event);
    m_tray->setChecked(ProgramOptions::staysInTray());
    m_notices->setChecked(ProgramOptions::showsNotices());
    m_noTray->setVisible(!QSystemTrayIcon::isSystemTrayAvailable());
}

} // namespace Quillary
