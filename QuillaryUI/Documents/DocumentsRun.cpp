#include "QuillaryUI/Documents/DocumentsRun.h"

#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QStringList>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Quillary {

namespace {

constexpr int border = 12;
constexpr int gap = 8;
constexpr int listHeight = 120;

} // namespace

DocumentsRun::DocumentsRun(LibraryAccess& library, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_title(new QLabel(this))
    , m_bar(new QProgressBar(this))
    , m_button(new QPushButton(this))
    , m_list(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("documentsRun"));
    m_title->setObjectName(QStringLiteral("runTitle"));
    m_bar->setAccessibleName(tr("Progress"));
    m_bar->setFormat(tr("%v of %m"));
    m_button->setObjectName(QStringLiteral("runButton"));
    m_list->setObjectName(QStringLiteral("runFailures"));
    m_list->setAccessibleName(tr("What failed"));
    m_list->setReadOnly(true);
    m_list->setTabChangesFocus(true);
    m_list->setFixedHeight(listHeight);
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(m_title);
    row->addWidget(m_bar, 1);
    row->addWidget(m_button);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(border, gap, border, gap);
    column->addLayout(row);
    column->addWidget(m_list);
    hide();
    connect(m_button, &QPushButton::clicked, this, [this] { m_isBusy ? cancel() : hide(); });
    connect(&library, &LibraryAccess::opened, this, [this] {
        if (m_isBusy && !m_isWaiting) {
            proceed();
        }
    });
}

void DocumentsRun::start(Task task)
{
    if (m_isBusy || task.documents.empty()) {
        return;
    }
    m_task = std::move(task);
    m_next = 0;
    m_failures.clear();
    m_isBusy = true;
    m_isCancelled = false;
    m_isWaiting = false;
    m_title->setText(m_task.title);
    m_button->setText(tr("Cancel"));
    m_button->setEnabled(true);
    m_list->hide();
    m_bar->show();
    m_bar->setRange(0, int(m_task.documents.size()));
    showProgress();
    show();
    Q_EMIT busyChanged(true);
    proceed();
}

void DocumentsRun::cancel()
{
    m_isCancelled = true;
    m_button->setEnabled(false);
    if (m_isBusy && !m_isWaiting) {
        proceed();
    }
}

void DocumentsRun::proceed()
{
    if (m_isCancelled || m_next >= m_task.documents.size()) {
        finish();
        return;
    }
    if (!m_library.isOpen()) {
        return; // goes on at `opened`
    }
    const std::size_t count = std::min(m_task.atOnce, m_task.documents.size() - m_next);
    const auto first = m_task.documents.begin() + std::ptrdiff_t(m_next);
    m_isWaiting = true;
    m_task.step(Keys(first, first + std::ptrdiff_t(count)),
                [self = QPointer(this), count](std::vector<Failure> failures) {
                    if (self) {
                        self->take(count, std::move(failures));
                    }
                });
}

void DocumentsRun::take(std::size_t count, std::vector<Failure> failures)
{
    m_isWaiting = false;
    m_next += count;
    std::ranges::move(failures, std::back_inserter(m_failures));
    showProgress();
    QTimer::singleShot(0, this, [this] { // the window draws, and answers the keys
        if (m_isBusy && !m_isWaiting) {
            proceed();
        }
    });
}

void DocumentsRun::showProgress()
{
    m_bar->setValue(int(m_next));
}

void DocumentsRun::finish()
{
    m_isBusy = false;
    const int through = int(m_next) - int(m_failures.size());
    if (through > 0) {
        Q_EMIT told(m_task.success(through));
    } else if (m_failures.empty()) {
        Q_EMIT told(tr("Cancelled. Nothing was done."));
    }
    setVisible(!m_failures.empty());
    if (!m_failures.empty()) {
        QStringList lines;
        for (const Failure& failure : m_failures) {
            const Document* document =
                m_library.isOpen() ? m_library.context().find(Ref<Document>(failure.document)) : nullptr;
            lines.push_back(document == nullptr
                                ? failure.sentence
                                : tr("%1: %2").arg(CoreText::sentence(documentName(*document)), failure.sentence));
        }
        m_title->setText(m_failures.size() == 1 ? tr("1 of %1 could not be done.").arg(m_next)
                                                : tr("%1 of %2 could not be done.").arg(m_failures.size()).arg(m_next));
        m_bar->hide();
        m_list->setPlainText(lines.join(QLatin1Char('\n')));
        m_list->show();
        m_button->setText(tr("Close"));
        m_button->setEnabled(true);
    }
    m_task = {};
    Q_EMIT busyChanged(false);
}

} // namespace Quillary
