#include "QuillaryUI/Look/Sheet.h"

#include "QuillaryUI/Look/Lettering.h"
#include "QuillaryUI/Look/Theme.h"

#include <QApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillary {

namespace {

constexpr int usualWidth = 520;
constexpr int border = 24;
constexpr int spacing = 12;
constexpr int tightSpacing = 6;
constexpr int tightRowSpacing = 2;

QLabel* heading(const QString& title, QWidget* parent)
{
    auto* label = new QLabel(title, parent);
    Lettering::set(*label, 1.25);
    return label;
}

} // namespace

Sheet::Sheet(const QString& title, const QString& answerName, QWidget* host)
    : QFrame(host)
    , m_widest(usualWidth)
    , m_body(new QVBoxLayout(this))
    , m_form(new QFormLayout)
    , m_explanation(new QLabel(this))
    , m_error(new QLabel(this))
    , m_accept(new QPushButton(answerName, this))
{
    setObjectName(QStringLiteral("sheet"));
    setAccessibleName(title);
    setAttribute(Qt::WA_DeleteOnClose);
    setStyleSheet(QStringLiteral(
        "QFrame#sheet { background: palette(window); border: 1px solid palette(midlight); border-radius: 8px; }"));
    m_usualRowSpacing = m_form->verticalSpacing();
    setTight(false);
    m_body->addWidget(heading(title, this));
    for (QLabel* label : {m_explanation, m_error}) {
        label->setWordWrap(true);
        label->hide();
    }
    m_error->setObjectName(QStringLiteral("sheetError"));
    Theme::tint(*m_error, Theme::errorColor());
    m_body->addWidget(m_explanation);
    m_body->addLayout(m_form);
    m_body->addWidget(m_error);
    auto* cancel = new QPushButton(tr("Cancel"), this);
    m_accept->setObjectName(QStringLiteral("sheetAnswer"));
    m_accept->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(m_accept);
    m_body->addLayout(buttons);
    connect(cancel, &QPushButton::clicked, this, &Sheet::close);
    connect(m_accept, &QPushButton::clicked, this, &Sheet::answer);
    host->installEventFilter(this);
}

void Sheet::setExplanation(const QString& text)
{
    m_explanation->setText(text);
    m_explanation->setVisible(!text.isEmpty() && !m_isTight);
}

/// Where the window is low, the questions and the buttons come before air and explanations.
void Sheet::setTight(bool isTight)
{
    m_isTight = isTight;
    const int around = isTight ? border / 2 : border;
    m_body->setContentsMargins(border, around, border, around);
    m_body->setSpacing(isTight ? tightSpacing : spacing);
    m_form->setVerticalSpacing(isTight ? tightRowSpacing : m_usualRowSpacing);
    m_explanation->setVisible(!m_explanation->text().isEmpty() && !isTight);
    m_body->activate();
}

int Sheet::neededHeight(int width) const
{
    const int forWidth = heightForWidth(width);
    return std::max(forWidth > 0 ? forWidth : sizeHint().height(), minimumSizeHint().height());
}

void Sheet::open(QWidget* firstField)
{
    m_before = QApplication::focusWidget();
    place();
    show();
    raise();
    if (firstField != nullptr) {
        firstField->setFocus(Qt::OtherFocusReason);
    }
}

void Sheet::fit()
{
    if (isVisible()) {
        m_body->activate();
        place();
    }
}

void Sheet::place()
{
    const QWidget* host = parentWidget();
    const int width = std::min(m_widest, host->width() - 2 * border);
    const int highest = host->height() - border;
    setTight(false);
    if (neededHeight(width) > highest) {
        setTight(true);
    }
    const int height = std::max(std::min(neededHeight(width), highest), minimumSizeHint().height());
    setGeometry((host->width() - width) / 2, border / 2, width, height);
}

bool Sheet::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        place();
    }
    return QFrame::eventFilter(watched, event);
}

void Sheet::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        answer();
    } else {
        QFrame::keyPressEvent(event);
    }
}

void Sheet::closeEvent(QCloseEvent* event)
{
    const QWidget* focus = QApplication::focusWidget(); // which an answer may have moved
    if (m_before != nullptr && m_before->isVisible() && (focus == nullptr || isAncestorOf(focus))) {
        m_before->setFocus(Qt::OtherFocusReason);
    }
    QFrame::closeEvent(event);
}

void Sheet::answer()
{
    const std::optional<QString> refusal = m_answer ? m_answer() : std::nullopt;
    if (!refusal) {
        Q_EMIT answered();
        close();
        return;
    }
    m_error->setText(*refusal);
    m_error->show();
    place();
}

} // namespace Quillary
