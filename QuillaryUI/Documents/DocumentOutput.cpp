#include "QuillaryUI/Documents/DocumentOutput.h"

#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryUI/Documents/EmailSheet.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/CoreText.h"

namespace Quillary {

DocumentOutput::DocumentOutput(LibraryAccess& library, QWidget& host)
    : QObject(&host)
    , m_library(library)
    , m_host(host)
{
}

QWidget& DocumentOutput::sheetHost(QWidget& pane)
{
    constexpr int enough = 568;
    for (QWidget* widget = pane.width() < enough ? &pane : nullptr; widget != nullptr;
         widget = widget->parentWidget()) {
        if (qobject_cast<Section*>(widget) != nullptr) {
            return *widget;
        }
    }
    return pane;
}

PageJob DocumentOutput::page(const Document& document) const
{
    return pageJob(m_library.context(), document, m_library.business(), m_library.formats().calendar());
}

PaperDesk::Asker DocumentOutput::asker()
{
    return {.widget = m_host,
            .told = [this](const QString& sentence) { Q_EMIT told(sentence); },
            .failed =
                [this](const QString& sentence) {
                    Q_EMIT failed(CoreText::sentence(utf8(sentence)));
                }};
}

void DocumentOutput::savePDF(const Document& document)
{
    PaperDesk::savePDF(m_library.press(),
                       page(document),
                       m_library.environment().printer().downloadsFolder(),
                       pdfFileName(m_library.context(), document, m_library.business(), m_library.formats().calendar()),
                       asker());
}

void DocumentOutput::print(const Document& document)
{
    PaperDesk::print(m_library.press(), page(document), CoreText::sentence(documentName(document)), asker());
}

void DocumentOutput::email(const Document& document)
{
    (new EmailSheet(m_library, document.ref.key(), &sheetHost(m_host)))->begin();
}

} // namespace Quillary
