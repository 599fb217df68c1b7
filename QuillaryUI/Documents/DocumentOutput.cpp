#include "QuillaryUI/Documents/DocumentOutput.h"

#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryUI/Documents/EmailSheet.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Paper/PaperPrinting.h"

#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

#include <filesystem>
#include <string>
#include <variant>

namespace Quillary {

DocumentOutput::DocumentOutput(LibraryAccess& library, QWidget& host)
    : QObject(&host)
    , m_library(library)
    , m_host(host)
{
}

PageJob DocumentOutput::page(const Document& document) const
{
    return pageJob(m_library.context(), document, m_library.business(), m_library.formats().calendar());
}

void DocumentOutput::savePDF(const Document& document)
{
    const std::string name =
        pdfFileName(m_library.context(), document, m_library.business(), m_library.formats().calendar());
    const std::filesystem::path folder = m_library.environment().printer().downloadsFolder();
    m_library.press().press(page(document), [self = QPointer(this), name, folder](const PrintResult& result) {
        if (!self) {
            return;
        }
        const auto* pdf = std::get_if<PrintedPDF>(&result);
        if (pdf == nullptr) {
            Q_EMIT self->failed(CoreText::sentence(std::get<PrintError>(result).message()));
            return;
        }
        try {
            const auto file = saveUniqueFile(folder, name, "pdf", pdf->bytes);
            Q_EMIT self->told(tr("Saved as %1").arg(text(file.string())));
        } catch (const UserError& error) {
            Q_EMIT self->failed(CoreText::sentence(error.message()));
        }
    });
}

void DocumentOutput::print(const Document& document)
{
    const PageJob job = page(document);
    auto* dialog = new QPrintDialog(&m_host); // its printer goes with it
    dialog->setObjectName(QStringLiteral("printDialog"));
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                       QAbstractPrintDialog::PrintCollateCopies);
    PaperPrinting::prepare(*dialog->printer(), job.geometry, CoreText::sentence(documentName(document)));
    connect(dialog, &QDialog::rejected, dialog, &QObject::deleteLater);
    connect(dialog, &QDialog::accepted, this, [this, dialog, job] {
        m_library.press().press(job, [self = QPointer(this), asked = QPointer(dialog)](const PrintResult& result) {
            if (self && asked) {
                self->printPages(*asked, result);
            }
        });
    });
    dialog->open();
}

void DocumentOutput::printPages(QPrintDialog& dialog, const PrintResult& result)
{
    dialog.deleteLater();
    if (const auto* error = std::get_if<PrintError>(&result)) {
        Q_EMIT failed(CoreText::sentence(error->message()));
        return;
    }
    try {
        PaperPrinting::print(m_library.press(), std::get<PrintedPDF>(result), *dialog.printer(), m_host.window());
    } catch (const PrintError& error) {
        Q_EMIT failed(CoreText::sentence(error.message()));
    }
}

void DocumentOutput::email(const Document& document)
{
    (new EmailSheet(m_library, document.ref.key(), &m_host))->begin();
}

} // namespace Quillary
