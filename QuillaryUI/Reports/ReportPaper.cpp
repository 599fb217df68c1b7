#include "QuillaryUI/Reports/ReportPaper.h"

#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Foundation/Instant.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Output/PrintedTable.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Reports/ReportModel.h"

#include <QCoreApplication>
#include <QStringList>

#include <utility>

namespace Quillary::ReportPaper {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportPaper)
};

void addTable(PrintedTable& printed, const ReportModel& model)
{
    for (int column = 0; column < model.columnCount(); ++column) {
        printed.columns.push_back({.title = utf8(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()),
                                   .isNumber = model.isNumeric(column)});
    }
    printed.rows.reserve(std::size_t(model.rowCount()));
    for (int row = 0; row < model.rowCount(); ++row) {
        std::vector<std::string>& cells = printed.rows.emplace_back();
        cells.reserve(std::size_t(model.columnCount()));
        for (int column = 0; column < model.columnCount(); ++column) {
            cells.push_back(utf8(model.index(row, column).data().toString()));
        }
    }
}

} // namespace

QString title(const FinishedReport& report)
{
    QStringList parts{CoreText::sentence(report.heading)};
    if (!report.period.empty()) {
        parts.push_back(CoreText::sentence(report.period));
    }
    parts.push_back(text(report.currencyCode));
    return parts.join(QStringLiteral(", "));
}

QString note(const FinishedReport& report)
{
    QStringList codes;
    for (const std::string& code : report.otherCurrencies) {
        codes.push_back(text(code));
    }
    return codes.isEmpty() ? QString()
                           : Words::tr("Not in this report: amounts in %1.").arg(codes.join(QStringLiteral(", ")));
}

QString fileName(const ReportOrder& order)
{
    QString name;
    switch (order.kind) {
    case ReportOrder::Kind::tax:
        name = Words::tr("Tax Report");
        break;
    case ReportOrder::Kind::taxDocuments:
        name = Words::tr("Tax Documents");
        break;
    case ReportOrder::Kind::aging:
        return Words::tr("Aging Report");
    case ReportOrder::Kind::clients:
        name = Words::tr("Client Report");
        break;
    case ReportOrder::Kind::invoices:
        name = Words::tr("Invoices");
        break;
    }
    if (order.period == ReportPeriod::all()) {
        return name;
    }
    return Words::tr("%1 %2 to %3", "the name of a file, with dates such as 2026-01-31")
        .arg(name, text(isoText(order.period.first)), text(isoText(order.period.last)));
}

PageJob page(const FinishedReport& report,
             const ReportModel& model,
             const Business& business,
             const Formats& formats,
             Instant now)
{
    PrintedTable printed = PrintedTable::of(business);
    printed.languageCode = utf8(Words::tr("en", "the language code of this translation"));
    if (!business.vatID.empty()) {
        printed.senderDetails.push_back(utf8(Words::tr("VAT ID %1").arg(text(business.vatID))));
    }
    if (!business.taxID.empty()) {
        printed.senderDetails.push_back(utf8(Words::tr("Tax number %1").arg(text(business.taxID))));
    }
    printed.heading = utf8(CoreText::sentence(report.heading));
    printed.facts = {{utf8(Words::tr("Period")), utf8(CoreText::sentence(report.period))},
                     {utf8(Words::tr("Currency")), report.currencyCode},
                     {utf8(Words::tr("Made on")), utf8(formats.date(now))}};
    addTable(printed, model);
    printed.hasTotal = report.hasTotal;
    printed.note = utf8(note(report));
    return pageJob(printed, utf8(Words::tr("Page {page} of {pages}")));
}

} // namespace Quillary::ReportPaper
