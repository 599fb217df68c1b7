#include "QuillaryUI/Look/Translation.h"

#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Assistant/Tools/AssistantAccess.h"
#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Billing/StatusActions.h"
#include "QuillaryCore/Letters/EmailPlaceholder.h"
#include "QuillaryCore/Model/PaymentMethod.h"
#include "QuillaryCore/Model/ReminderLevel.h"
#include "QuillaryCore/Reports/AgingReport.h"
#include "QuillaryCore/Reports/ReportBasis.h"
#include "QuillaryCore/Schedules/RecurringTemplate.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/Formats.h"
#include "QuillaryUI/Look/Sentences/CoreWords.h"
#include "tests/QuillaryUI/TranslationFile.h"

#include <QApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <array>

namespace Quillary {
namespace {

QSet<QString> places(const QString& text)
{
    static const QRegularExpression place(QStringLiteral("%[1-9]"));
    QSet<QString> found;
    for (auto match = place.globalMatch(text); match.hasNext();) {
        found.insert(match.next().captured());
    }
    return found;
}

TEST(TranslationTest, holdsEveryTextOfTheSourcesAndNothingElse)
{
    QProcess check;
    check.start(QStringLiteral(QUILLARY_SOURCES "/scripts/update-translations"), {QStringLiteral("--check")});
    ASSERT_TRUE(check.waitForFinished());
    EXPECT_EQ(check.exitCode(), 0) << check.readAllStandardError().toStdString();
}

TEST(TranslationTest, isFinishedAndFillsInTheSamePlaces)
{
    for (const TranslatedText& text : translatedTexts()) {
        EXPECT_TRUE(text.isFinished && !text.german.isEmpty()) << text.source.toStdString();
        EXPECT_EQ(places(text.german), places(text.source)) << text.source.toStdString();
        const auto hasMnemonic = [](const QString& words) {
            static const QRegularExpression letter(QStringLiteral("&\\w(?!\\w*;)"));
            return words.contains(letter);
        };
        EXPECT_EQ(hasMnemonic(text.german), hasMnemonic(text.source)) << text.source.toStdString();
    }
}

/// What the core calls things is looked up while the program runs, so the tool that gathers texts can't miss it.
TEST(TranslationTest, knowsWhatTheCoreCallsThings)
{
    const QSet<QString> known(CoreText::words.begin(), CoreText::words.end());
    std::vector<std::string> titles;
    for (const std::optional<DocumentKind> kind : {DocumentKind::invoice, DocumentKind::creditNote}) {
        titles.emplace_back(title(*kind));
        for (const DisplayStatus status : allDisplayStatuses) {
            titles.emplace_back(title(status, kind));
        }
        for (const StatusAction action : {StatusAction::markSent,
                                          StatusAction::markPaid,
                                          StatusAction::markUnpaid,
                                          StatusAction::markDraft,
                                          StatusAction::markAccepted,
                                          StatusAction::markDeclined,
                                          StatusAction::reopen}) {
            titles.emplace_back(title(action, kind));
        }
    }
    const auto add = [&titles](const auto& values) {
        for (const auto value : values) {
            titles.emplace_back(title(value));
        }
    };
    add(allPaymentMethods);
    add(std::array{ReminderLevel::first, ReminderLevel::second, ReminderLevel::final});
    add(std::array{AssistantAccess::readOnly, AssistantAccess::drafts, AssistantAccess::everything});
    add(allReportBases);
    add(allRecurringStates);
    for (const AgingReport::Bucket bucket : AgingReport::allBuckets) {
        titles.emplace_back(AgingReport::title(bucket));
    }
    for (const EmailPlaceholder placeholder : allEmailPlaceholders) {
        titles.emplace_back(summary(placeholder));
    }
    for (const TimeInvoicing::Grouping grouping : TimeInvoicing::allGroupings) {
        titles.emplace_back(TimeInvoicing::title(grouping));
    }
    for (const char* setting : {"template", "template_font", "logo_position", "logo_size"}) {
        for (std::string choice : BusinessSettings::choices(setting)) {
            choice[0] = static_cast<char>(choice[0] - 'a' + 'A');
            titles.push_back(choice);
        }
    }
    for (const std::string& title : titles) {
        EXPECT_TRUE(known.contains(text(title))) << title;
    }
}

TEST(TranslationTest, keepsWhatTheCoreFilledIn)
{
    QApplication& application = *qApp;
    Translation::install(application, Locale("de_AT"), Locale("de_AT"));
    const std::pair<const char*, const char*> cases[] = {
        {"Partly Paid", "Teilbezahlt"},
        {"Invoice INV-7", "Rechnung INV-7"},
        {"Invoice without a number", "Rechnung ohne Nummer"},
        {"Recurring Invoice without a number", "Wiederkehrende Rechnung ohne Nummer"}, // not an invoice called that
        {"Line 2 (“%1 (new)”) has the quantity 0, so it bills nothing.",
         "Position 2 („%1 (new)“) hat die Menge 0 und berechnet also nichts."},
        {"The invoice has no date.", "Rechnung: Das Datum fehlt."},
        {"A sentence of an assistant.", "A sentence of an assistant."},
    };
    for (const auto& [english, german] : cases) {
        EXPECT_EQ(CoreText::sentence(english), QString::fromUtf8(german));
    }
    Translation::install(application, Locale("en_US"), Locale("en_US"));
    EXPECT_EQ(CoreText::sentence("Invoice INV-7"), QStringLiteral("Invoice INV-7"));
}

} // namespace
} // namespace Quillary
