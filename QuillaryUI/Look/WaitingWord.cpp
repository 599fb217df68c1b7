#include "QuillaryUI/Look/WaitingWord.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Quillary {

namespace {

constexpr int unnoticed = 100; ///< milliseconds in which nobody sees that anything is awaited
constexpr int patience = 1000; ///< milliseconds
constexpr int gap = 12;

} // namespace

WaitingWord::WaitingWord(const QString& words, QWidget* parent)
    : QWidget(parent)
    , m_words(new QLabel(words, this))
    , m_cancel(new QPushButton(tr("Cancel"), this))
{
    m_words->setObjectName(QStringLiteral("waitingWord"));
    m_words->setForegroundRole(QPalette::PlaceholderText);
    m_cancel->setObjectName(QStringLiteral("cancelWaiting"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(m_words);
    row->addWidget(m_cancel);
    QSizePolicy keepsItsRoom = m_cancel->sizePolicy(); // so that nothing moves when it comes
    keepsItsRoom.setRetainSizeWhenHidden(true);
    m_cancel->setSizePolicy(keepsItsRoom);
    m_untilWord.setSingleShot(true);
    m_untilWord.setInterval(unnoticed);
    m_untilCancel.setSingleShot(true);
    m_untilCancel.setInterval(patience);
    connect(&m_untilWord, &QTimer::timeout, this, [this] {
        m_words->show();
        Q_EMIT appeared();
    });
    connect(&m_untilCancel, &QTimer::timeout, m_cancel, &QWidget::show);
    connect(m_cancel, &QPushButton::clicked, this, &WaitingWord::cancelled);
    end();
}

void WaitingWord::begin()
{
    if (!m_untilCancel.isActive() && m_cancel->isHidden()) {
        m_untilWord.start();
        m_untilCancel.start();
    }
}

void WaitingWord::end()
{
    m_untilWord.stop();
    m_untilCancel.stop();
    m_words->hide();
    m_cancel->hide();
}

} // namespace Quillary
