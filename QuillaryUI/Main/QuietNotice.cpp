#include "QuillaryUI/Main/QuietNotice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <chrono>

namespace Quillary {

namespace {

constexpr int border = 8;
constexpr std::chrono::seconds shownFor{20};

} // namespace

QuietNotice::QuietNotice(QWidget* parent)
    : QWidget(parent)
    , m_sentence(new QLabel(this))
{
    setObjectName(QStringLiteral("quietNotice"));
    m_sentence->setObjectName(QStringLiteral("quietSentence"));
    m_sentence->setTextFormat(Qt::PlainText); // an assistant chose some of the words
    auto* show = new QPushButton(tr("Show"), this);
    show->setObjectName(QStringLiteral("quietShow"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(border, border / 2, border, border / 2);
    row->setSpacing(2 * border);
    row->addWidget(m_sentence);
    row->addWidget(show);
    row->addStretch();
    m_time.setSingleShot(true);
    m_time.setInterval(shownFor);
    connect(&m_time, &QTimer::timeout, this, &QWidget::hide);
    connect(show, &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT wantedDocument(m_document);
    });
    hide();
}

void QuietNotice::tell(const QString& sentence, std::int64_t document)
{
    m_sentence->setText(sentence);
    m_document = document;
    show();
    m_time.start();
}

} // namespace Quillary
