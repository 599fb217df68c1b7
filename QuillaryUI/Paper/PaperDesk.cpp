#include "QuillaryUI/Paper/PaperDesk.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"
#include "QuillaryUI/Paper/PaperPrinting.h"

#include <QCoreApplication>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

#include <utility>
#include <variant>

namespace Quillary::PaperDesk {

namespace {

void printPages(PagePress& press, const PrintResult& result, QPrintDialog& dialog, const Asker& asker)
{
    dialog.deleteLater();
    if (const auto* error = std::get_if<PrintError>(&result)) {
        asker.failed(QString::fromStdString(error->message()));
        return;
    }
    try {
        PaperPrinting::print(press, std::get<PrintedPDF>(result), *dialog.printer(), asker.widget.window());
    } catch (const PrintError& error) {
        asker.failed(QString::fromStdString(error.message()));
    }
}

} // namespace

void savePDF(
    PagePress& press, PageJob job, const std::filesystem::path& folder, const std::string& name, const Asker& asker)
{
    press.press(std::move(job), [self = QPointer(&asker.widget), asker, folder, name](const PrintResult& result) {
        if (!self) {
            return;
        }
        const auto* pdf = std::get_if<PrintedPDF>(&result);
        if (pdf == nullptr) {
            asker.failed(QString::fromStdString(std::get<PrintError>(result).message()));
            return;
        }
        try {
            const auto file = saveUniqueFile(folder, name, "pdf", pdf->bytes);
            asker.told(
                QCoreApplication::translate("PaperDesk", "Saved as %1").arg(QString::fromStdString(file.string())));
        } catch (const UserError& error) {
            asker.failed(QString::fromStdString(error.message()));
        }
    });
}

void print(PagePress& press, PageJob job, const QString& name, const Asker& asker)
{
    auto* dialog = new QPrintDialog(&asker.widget); // its printer goes with it
    dialog->setObjectName(QStringLiteral("printDialog"));
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                       QAbstractPrintDialog::PrintCollateCopies);
    PaperPrinting::prepare(*dialog->printer(), job.geometry, name);
    QObject::connect(dialog, &QDialog::rejected, dialog, &QObject::deleteLater);
    QObject::connect(dialog, &QDialog::accepted, &asker.widget, [&press, dialog, asker, job = std::move(job)] {
        press.press(job, [&press, asked = QPointer(dialog), asker](const PrintResult& result) {
            if (asked) { // it goes with the widget
                printPages(press, result, *asked, asker);
            }
        });
    });
    dialog->open();
}

} // namespace Quillary::PaperDesk
