#include "QuillaryUI/Lock/LockPage.h"

#include "QuillaryUI/Lock/LockKeeper.h"
#include "QuillaryUI/Look/Lettering.h"
#include "QuillaryUI/Look/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <chrono>

namespace Quillary {

namespace {

constexpr int formWidth = 360;
constexpr int signSize = 48;
constexpr int gap = 8;
constexpr double headingSize = 1.5;

} // namespace

LockPage::LockPage(LockKeeper& keeper, QWidget* parent)
    : QWidget(parent)
    , m_keeper(keeper)
    , m_passphrase(new QLineEdit(this))
    , m_unlock(new QPushButton(tr("Unlock"), this))
    , m_error(new QLabel(this))
{
    build();
    m_second.setInterval(std::chrono::seconds(1));
    connect(&m_second, &QTimer::timeout, this, &LockPage::showWait);
    connect(m_unlock, &QPushButton::clicked, this, &LockPage::attempt);
    connect(m_passphrase, &QLineEdit::returnPressed, m_unlock, &QPushButton::click);
}

void LockPage::build()
{
    setObjectName(QStringLiteral("lockPage"));
    auto* form = new QWidget(this);
    form->setFixedWidth(formWidth);
    auto* sign = new QLabel(form);
    sign->setPixmap(Theme::icon(QStringLiteral("lock")).pixmap(signSize, signSize));
    auto* heading = new QLabel(tr("Quillary is locked"), form);
    Lettering::set(*heading, headingSize);
    m_passphrase->setObjectName(QStringLiteral("lockPassphrase"));
    m_passphrase->setAccessibleName(tr("Passphrase"));
    m_passphrase->setPlaceholderText(tr("Passphrase"));
    m_passphrase->setEchoMode(QLineEdit::Password);
    m_unlock->setObjectName(QStringLiteral("unlock"));
    m_unlock->setDefault(true);
    m_error->setObjectName(QStringLiteral("lockError"));
    m_error->setWordWrap(true);
    m_error->setTextFormat(Qt::PlainText);
    Theme::tint(*m_error, Theme::errorColor());
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(m_passphrase, 1);
    row->addWidget(m_unlock);
    auto* column = new QVBoxLayout(form);
    column->setSpacing(2 * gap);
    column->addWidget(sign, 0, Qt::AlignHCenter);
    column->addWidget(heading, 0, Qt::AlignHCenter);
    column->addLayout(row);
    column->addWidget(m_error);
    auto* whole = new QGridLayout(this);
    whole->setRowStretch(0, 2);
    whole->setRowStretch(2, 3);
    whole->addWidget(form, 1, 0, Qt::AlignHCenter);
}

void LockPage::begin()
{
    m_passphrase->clear();
    m_error->clear();
    m_passphrase->setFocus(Qt::OtherFocusReason);
    m_second.start();
    showWait();
}

void LockPage::attempt()
{
    if (const auto refusal = m_keeper.unlock(m_passphrase->text())) {
        m_error->setText(*refusal);
        m_passphrase->selectAll();
        m_passphrase->setFocus(Qt::OtherFocusReason);
        showWait();
        return;
    }
    m_second.stop();
    m_passphrase->clear();
}

/// What was typed stays while one waits.
void LockPage::showWait()
{
    const auto wait = m_keeper.wait().count();
    const bool hadToWait = !m_unlock->isEnabled();
    m_unlock->setEnabled(wait == 0);
    if (wait > 0) {
        m_error->setText(wait == 1 ? tr("That wasn't the passphrase. Try again in a second.")
                                   : tr("That wasn't the passphrase. Try again in %1 seconds.").arg(wait));
    } else if (hadToWait) {
        m_error->clear();
    }
}

} // namespace Quillary
