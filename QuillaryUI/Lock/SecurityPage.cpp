#include "QuillaryUI/Lock/SecurityPage.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Formats.h"
#include "QuillaryUI/Look/Theme.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace Quillary {

namespace {

constexpr int gap = 8;
constexpr std::array idleChoices{1, 5, 15, 30, 60}; ///< Unit: minutes

QString idleText(int minutes)
{
    return minutes == 0   ? SecurityPage::tr("Only when I lock it")
           : minutes == 1 ? SecurityPage::tr("After a minute without input")
                          : SecurityPage::tr("After %1 minutes without input").arg(minutes);
}

/// However a letter with an accent was typed, it is the same letter.
std::string typed(const QLineEdit& field)
{
    return utf8(field.text().normalized(QString::NormalizationForm_C));
}

QLabel* paragraph(const QString& words, QWidget* parent)
{
    auto* label = new QLabel(words, parent);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace

SecurityPage::SecurityPage(const std::filesystem::path& file, std::function<Instant()> now, QWidget* parent)
    : Section(parent)
    , m_file(std::make_unique<LockFile>(file))
    , m_now(std::move(now))
    , m_error(new QLabel(this))
    , m_set(new QPushButton(this))
    , m_remove(new QPushButton(tr("Remove Passphrase"), this))
    , m_idle(new QComboBox(this))
    , m_forgotten(paragraph({}, this))
{
    setObjectName(QStringLiteral("securityPage"));
    build();
    connect(m_set, &QPushButton::clicked, this, &SecurityPage::set);
    connect(m_again, &QLineEdit::returnPressed, m_set, &QPushButton::click);
    connect(m_remove, &QPushButton::clicked, this, &SecurityPage::remove);
    connect(m_idle, &QComboBox::activated, this, [this] {
        // A passphrase that is being typed stays; and what could not be written down is not shown as if it were.
        attempt([this] { m_file->setIdleMinutes(m_idle->currentData().toInt()); });
        showIdle();
    });
    setEnabled(!file.empty());
    refresh();
}

SecurityPage::~SecurityPage() = default;

QLineEdit* SecurityPage::addField(QFormLayout& form, const QString& name, const QString& label)
{
    auto* field = new QLineEdit(this);
    field->setObjectName(name);
    field->setAccessibleName(label);
    field->setEchoMode(QLineEdit::Password);
    form.addRow(label, field);
    return field;
}

void SecurityPage::build()
{
    auto* form = new QFormLayout;
    form->setSpacing(gap);
    m_old = addField(*form, QStringLiteral("oldPassphrase"), tr("Passphrase until now"));
    m_oldLabel = qobject_cast<QLabel*>(form->labelForField(m_old));
    m_fresh = addField(*form, QStringLiteral("newPassphrase"), tr("New passphrase"));
    m_again = addField(*form, QStringLiteral("newPassphraseAgain"), tr("The new one again"));
    m_set->setObjectName(QStringLiteral("setPassphrase"));
    m_remove->setObjectName(QStringLiteral("removePassphrase"));
    m_error->setObjectName(QStringLiteral("passphraseError"));
    m_error->setWordWrap(true);
    m_error->setTextFormat(Qt::PlainText);
    Theme::tint(*m_error, Theme::errorColor());
    m_idle->setObjectName(QStringLiteral("lockIdle"));
    m_idle->setAccessibleName(tr("Lock by itself"));
    m_idle->setFocusPolicy(Qt::StrongFocus);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(gap);
    buttons->addWidget(m_set);
    buttons->addWidget(m_remove);
    buttons->addStretch();
    auto* locking = new QFormLayout;
    locking->addRow(tr("Lock by itself"), m_idle);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2 * gap);
    column->addLayout(form);
    column->addWidget(m_error);
    column->addLayout(buttons);
    column->addLayout(locking);
    column->addWidget(paragraph(tr("The lock hides the window and stops assistants. It encrypts nothing: whoever may "
                                   "use this account of the computer can read the library's files with other programs, "
                                   "and Quillary's commands in a terminal go on working."),
                                this));
    column->addWidget(m_forgotten);
    m_forgotten->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void SecurityPage::showEvent(QShowEvent* event)
{
    Section::showEvent(event);
    tell({});
    refresh();
    (m_old->isVisibleTo(this) ? m_old : m_fresh)->setFocus(Qt::OtherFocusReason);
}

void SecurityPage::refresh()
{
    const bool isSet = m_file->hasPassphrase();
    m_old->setVisible(isSet);
    m_oldLabel->setVisible(isSet);
    m_remove->setVisible(isSet);
    m_set->setText(isSet ? tr("Change Passphrase") : tr("Set Passphrase"));
    for (QLineEdit* field : {m_old, m_fresh, m_again}) {
        field->clear();
    }
    m_idle->setEnabled(isSet);
    showIdle();
    m_forgotten->setText(tr("A passphrase can't be read back. Who has forgotten it deletes the file %1 and presses "
                            "Unlock; the library stays as it is.")
                             .arg(text(m_file->path().string())));
    if (const auto problem = m_file->problem()) {
        tell(CoreText::sentence(*problem));
    }
}

void SecurityPage::showIdle()
{
    const int stored = m_file->current().idleMinutes;
    m_idle->clear();
    m_idle->addItem(idleText(0), 0);
    for (const int minutes : idleChoices) {
        m_idle->addItem(idleText(minutes), minutes);
    }
    if (m_idle->findData(stored) < 0) {
        m_idle->addItem(idleText(stored), stored);
    }
    m_idle->setCurrentIndex(m_idle->findData(stored));
}

void SecurityPage::tell(const QString& sentence)
{
    m_error->setText(sentence);
    m_error->setVisible(!sentence.isEmpty());
}

void SecurityPage::set()
{
    if (m_fresh->text() != m_again->text()) {
        tell(tr("The new passphrase was typed in two ways. Type it again."));
        m_again->clear();
        m_again->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (attempt([this] { m_file->setPassphrase(typed(*m_old), typed(*m_fresh), m_now()); })) {
        refresh();
        Q_EMIT told(tr("The passphrase is set. Ctrl+L locks."));
    }
}

void SecurityPage::remove()
{
    if (attempt([this] { m_file->removePassphrase(typed(*m_old), m_now()); })) {
        refresh();
        Q_EMIT told(tr("There is no passphrase any more."));
    }
}

bool SecurityPage::attempt(const std::function<void()>& work)
{
    try {
        work();
    } catch (const UserError& error) {
        tell(CoreText::sentence(error.message()));
        return false;
    }
    tell({});
    return true;
}

} // namespace Quillary
