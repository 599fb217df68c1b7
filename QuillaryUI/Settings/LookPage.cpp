#include "QuillaryUI/Settings/LookPage.h"

#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Model/LineItem.h"
#include "QuillaryCore/Samples/SampleLibrary.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Paper/LivePage.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QHBoxLayout>

#include <cstddef>
#include <cstdint>

namespace Quillary {

namespace {

constexpr int gap = 24;
constexpr int leastHeight = 560;
constexpr std::int64_t comparedInvoices = 20;
constexpr std::size_t mostLines = 20; ///< a long document would answer too slowly

} // namespace

LookPage::LookPage(LibraryAccess& library, QWidget& form)
    : m_library(library)
{
    auto* paper = new PaperView(library.press(), this);
    paper->setObjectName(QStringLiteral("lookPaper"));
    paper->setAccessibleName(tr("A page in this look"));
    paper->setMinimumHeight(leastHeight);
    m_page = new LivePage(library.press(), *paper);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(gap);
    columns->addWidget(&form, 1, Qt::AlignTop);
    columns->addWidget(paper, 1);
    m_page->show([this] { return page(); });
}

LookPage::~LookPage() = default;

void LookPage::refresh()
{
    m_page->refresh();
}

std::optional<PageJob> LookPage::page()
{
    if (!m_library.isOpen()) {
        return std::nullopt;
    }
    const Calendar& calendar = m_library.formats().calendar();
    Context& context = m_library.context();
    for (const Document* invoice :
         context.fetch<Document>("kindRaw = 0 ORDER BY issueDate DESC, id DESC LIMIT ?", comparedInvoices)) {
        if (context.related<&LineItem::document>(*invoice).size() <= mostLines) {
            return pageJob(context, *invoice, m_library.business(), calendar);
        }
    }
    if (m_samples == nullptr) {
        m_samples = std::make_unique<SampleLibrary>(documentLanguage(m_library.business().languageCode));
    }
    return pageJob(
        m_samples->context(), *m_samples->samples().front().document, m_library.business(), m_samples->calendar());
}

} // namespace Quillary
