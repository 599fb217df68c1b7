#include "QuillaryUI/Look/CoreText.h"

#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Assistant/Operations/ContactOperations.h"
#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Operations/RecordFields.h"
#include "QuillaryCore/Documents/CreditNotes.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Documents/DocumentView.h"
#include "QuillaryCore/Documents/DraftLines.h"
#include "QuillaryCore/Documents/SavedViews.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Letters/EmailTemplates.h"
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Schedules/RecurringSetup.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Schedules/WorkTimes.h"
#include "QuillaryCore/Store/Backups.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Tabular/CSV.h"
#include "QuillaryCore/Tabular/ImportColumns.h"
#include "QuillaryUI/Documents/DraftDesk.h"
#include "QuillaryUI/Documents/ReviewPanel.h"
#include "QuillaryUI/Documents/WindowWords.h"
#include "QuillaryUI/Look/Sentences/Sentences.h"
#include "QuillaryUI/Look/Translation.h"
#include "tests/QuillaryUI/WindowLibrary.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {
namespace {

/// Germans write these numbers and read these words.
class CoreTextTest : public testing::Test
{
protected:
    CoreTextTest() { Translation::install(*qApp, Locale("de_DE"), Locale("de_DE")); }
    ~CoreTextTest() override { Translation::install(*qApp, Locale("en_GB"), Locale("en_GB")); }
    CoreTextTest(const CoreTextTest&) = delete;
    CoreTextTest& operator=(const CoreTextTest&) = delete;
};

/// Something that may stand at a place, and how a German reads it.
std::pair<QString, QString> sample(CoreText::Value kind, qsizetype place)
{
    using enum CoreText::Value;
    switch (kind) {
    case own: {
        const QString name = QStringLiteral("Nr. %1").arg(place);
        return {name, name};
    }
    case word:
        return {QStringLiteral("credit note"), QStringLiteral("Gutschrift")};
    case sentence:
        return {QStringLiteral("Invoice INV-7"), QStringLiteral("Rechnung INV-7")};
    case list:
        return {QStringLiteral("“Mark as Paid”, “Back to Draft”"),
                QStringLiteral("„Als bezahlt markieren“, „Zurück zum Entwurf“")};
    case figure:
        return {QStringLiteral("1250000.50 EUR"), QStringLiteral("1.250.000,50 EUR")};
    case date:
        return {QStringLiteral("2026-03-31"), QStringLiteral("31.03.26")};
    case country:
        return {QStringLiteral("the Netherlands"), QStringLiteral("Niederlande")};
    }
    return {};
}

/// Each pattern has its German, is found by what it makes, and no narrower one takes it.
TEST_F(CoreTextTest, findsEachOfItsSentencesAgain)
{
    for (const auto& area : {CoreText::documentSentences(),
                             CoreText::fieldSentences(),
                             CoreText::librarySentences(),
                             CoreText::reviewSentences()}) {
        for (const CoreText::SentencePattern& pattern : area) {
            QString english = QString::fromUtf8(pattern.english);
            QString german = QCoreApplication::translate("Core", pattern.english);
            EXPECT_NE(english, german);
            for (qsizetype place = 1; place <= qsizetype(CoreText::mostPlaces); ++place) {
                const auto [given, shown] = sample(pattern.values.at(std::size_t(place - 1)), place);
                english.replace(QStringLiteral("%%1").arg(place), given);
                german.replace(QStringLiteral("%%1").arg(place), shown);
            }
            EXPECT_EQ(CoreText::sentence(utf8(english)).toStdString(), german.toStdString()) << pattern.english;
        }
    }
}

const Document& draftOf(const WindowLibrary& window, const Document& sent)
{
    const LibraryAccess& library = window.library;
    BusinessSettings::set(library.environment(), "invoice_number_format", "{yyyy}-{###}");
    return DocumentActions::duplicate(library.desk(), sent, library.now(), {});
}

const Document& sentOne(WindowLibrary& window, DocumentKind kind)
{
    return *window.library.context().fetch<Document>("kindRaw = ? ORDER BY id", int(kind)).front();
}

/// What the library says to work that it refuses.
QString refusal(const WindowLibrary& window, const std::function<void()>& work)
{
    const auto refused = window.library.perform(QStringLiteral("Test"), work);
    EXPECT_TRUE(refused) << "it was not refused";
    return WindowWords::refusal(refused.value_or(QString()));
}

void expectGerman(const QString& sentence, const std::string& what)
{
    static const QRegularExpression english(
        QStringLiteral("\\b(the|is|isn't|has|have|can|can't|must|at most|and|such|with|a|by|to)\\b"));
    EXPECT_FALSE(sentence.isEmpty() || sentence.contains(english)) << what << ": " << sentence.toStdString();
    EXPECT_FALSE(sentence.contains(QRegularExpression(QStringLiteral("[a-z]_[a-z]")))) << sentence.toStdString();
}

TEST_F(CoreTextTest, saysInGermanWhatADraftRefuses)
{
    WindowLibrary window;
    const Document& draft = draftOf(window, sentOne(window, DocumentKind::invoice));
    const std::pair<const char*, const char*> cases[] = {
        {R"({"payment_terms_days": 99999})", "„Zahlbar in“ muss eine ganze Zahl von 0 bis 3.650 sein."},
        {R"({"change_lines": [{"line": 1, "unit_price": 900000000000}]})",
         "„Preis“ ist zu groß (Preis): höchstens 100.000.000.000,00 GBP."},
        {R"({"currency": "ABC"})", nullptr},
        {R"({"issue_date": "soon"})", nullptr},
        {R"({"valid_until": "2030-01-01"})", nullptr},
        {R"({"service_date": "once"})", nullptr},
        {R"({"discount_percent": 101})", nullptr},
        {R"({"discount_percent": 1, "discount_amount": 1})", nullptr},
        {R"({"add_lines": [{"title": "Work", "quantity": 100000000000}]})", nullptr},
        {R"({"add_lines": [{"title": "Work", "unit": "bogomip"}]})", nullptr},
        {R"({"change_lines": [{"line": 1, "tax_rate": 19.123}]})", nullptr},
    };
    for (const auto& [arguments, german] : cases) {
        const JSON given = JSON::parse(arguments).value();
        const QString sentence = refusal(
            window, [&] { DocumentSession::open(window.library.environment(), draft).apply(Arguments(given)); });
        expectGerman(sentence, arguments);
        if (german != nullptr) {
            EXPECT_EQ(utf8(sentence), german);
        }
    }
}

TEST_F(CoreTextTest, asksInGermanForWhatADraftLacks)
{
    WindowLibrary window;
    const AssistantEnvironment& environment = window.library.environment();
    BusinessSettings::set(environment, "invoice_number_format", "{yyyy}-{###}");
    BusinessSettings::set(environment, "client_number_format", "C-{#}");
    BusinessSettings::set(environment, "country", "DE");
    BusinessSettings::set(environment, "currency", "EUR");
    BusinessSettings::set(environment, "vat_id", "DE123456789");
    TaxRates::makeDefault(environment.context, TaxRates::append(environment.context, "Standard", 2'000));
    AssistantActions actions(environment);
    const auto call = [&](const char* tool, const std::string& arguments) {
        std::optional<UUID> made;
        actions.call(tool, JSON::parse(arguments).value(), [&](const ToolResult& result) {
            EXPECT_FALSE(result.isError) << result.text;
            made = result.documentID;
        });
        return made;
    };
    for (const char* client : {R"({"name": "Cash", "country": "AT", "vat_id": "ATU12345678"})",
                               R"({"name": "Wien", "country": "AT"})",
                               R"({"name": "Ohio", "country": "US", "currency": "USD"})"}) {
        call("create_client", client);
    }
    const std::pair<const char*, std::vector<QString>> cases[] = {
        {R"({"kind": "invoice", "client": "Cash", "add_lines": [{"title": "Work"}]})",
         {"Nichts, es ist kosten", "Ja, Reverse-Charge", "Derselbe Tag wie die Rechnung"}},
        {R"({"kind": "invoice", "client": "Wien", "add_lines": [{"title": "Work", "unit_price": 900, "tax_rate": 0}]})",
         {"20 % (Standard)", "Es gibt keine"}},
        {R"({"kind": "invoice", "client": "Ohio", "currency": "EUR", "add_lines": [{"title": "Work", "unit_price": 9}]})",
         {"USD, wie üblich", "Ja, ohne", "Nein,"}},
        {R"({"kind": "invoice"})", {"Jemand Neues", ">Cash<"}}, // which is a way to pay, too
    };
    for (const auto& [arguments, answers] : cases) {
        const std::optional<UUID> made = call("create_document", arguments);
        DraftDesk desk(window.library);
        desk.setDocument(environment.context.find<Document>(made.value())->ref.key());
        ReviewPanel panel(desk);
        panel.reload();
        expectGerman(QTextDocumentFragment::fromHtml(panel.text()).toPlainText(), arguments);
        for (const QString& answer : answers) {
            EXPECT_TRUE(panel.text().contains(answer)) << utf8(answer) << " in " << utf8(panel.text());
        }
    }
}

TEST_F(CoreTextTest, saysInGermanWhatTheSettingsRefuse)
{
    const std::pair<const char*, const char*> cases[] = {
        {"iban", "DE00"},
        {"bic", "X"},
        {"vat_id", "12"},
        {"email", "nobody"},
        {"country", "Atlantis"},
        {"currency", "ABC"},
        {"accent_color", "red"},
        {"upi_id", "x"},
        {"hidden_units", "bogomip"},
        {"late_fee_kind", "often"},
        {"hourly_rate", "-1"},
        {"late_fee_percent", "120"},
        {"invoice_number_format", ""},
        {"invoice_number_format", "INV"},
        {"invoice_number_format", "{#}{#}"},
        {"invoice_number_format", "{year}{#}"},
        {"invoice_number_format", "{#"},
        {"client_number_format", "{client}{#}"},
        {"file_name_format", ""},
        {"file_name_format", "Document"},
    };
    WindowLibrary window;
    for (const auto& [name, value] : cases) {
        QString sentence = refusal(window, [&] { BusinessSettings::set(window.library.environment(), name, value); });
        CoreText::nameField(sentence, text(name), QStringLiteral("Feld"));
        expectGerman(sentence, name);
    }
}

TEST_F(CoreTextTest, saysInGermanWhatTheOperationsRefuse)
{
    WindowLibrary window;
    LibraryAccess& library = window.library;
    Context& context = library.context();
    const Document& sent = sentOne(window, DocumentKind::invoice);
    const Document& quote = sentOne(window, DocumentKind::quote);
    const Document& draft = draftOf(window, sent);
    const Desk desk = library.desk();
    const Calendar& calendar = library.formats().calendar();
    const Instant now = library.now();
    const CalendarDate today = calendar.date(now);
    const AssistantEnvironment& environment = library.environment();
    const JSON nothing = JSON::object({});
    const JSON known = JSON::object({{"name", "Neubau"}});
    addRecord<Project>(environment, Arguments(known));
    const auto tomorrow = calendar.addingDays(now, 2);
    const std::vector<std::function<void()>> cases = {
        [&] { DocumentActions::applyStatus(desk, sent, StatusAction::markAccepted, now); },
        [&] { DocumentActions::deleteDraft(desk, sent); },
        [&] { DocumentActions::pay(desk, quote, {.amountMinorUnits = 1, .date = now, .note = {}}, now); },
        [&] { DocumentActions::pay(desk, sent, {.date = now, .note = {}}, now); },
        [&] { DocumentActions::pay(desk, sent, {.amountMinorUnits = 1, .date = tomorrow, .note = {}}, now); },
        [&] {
            DocumentActions::pay(desk, sent, {.amountMinorUnits = 900'000'000'000'000, .date = now, .note = {}}, now);
        },
        [&] { DocumentActions::invoiceFromQuote(desk, sent, now, {}); },
        [&] {
            Project& project = context.insert<Project>();
            project.name = "Alt";
            project.isArchived = true;
            DocumentActions::setProject(desk, draft, &project);
        },
        [&] { CreditNotes::make(desk, draft, {.issueDate = now}); },
        [&] { CreditNotes::make(desk, quote, {.issueDate = now}); },
        [&] { CreditNotes::make(desk, sent, {.issueDate = now, .lines = {{.line = 99}}}); },
        [&] { DraftLines::nest(context, draft, 0); },
        [&] { DraftLines::move(context, sent, 0, 1); },
        [&] { SavedViews::keep(context, DocumentKind::invoice, " ", {}); },
        [&] { RecurringSetup::create(desk, quote, {}, today); },
        [&] { RecurringSetup::create(desk, sent, {.interval = 0}, today); },
        [&] { RecurringSetup::create(desk, sent, {.end = RecurringEnd{.rule = RecurrenceEnd::afterCount}}, today); },
        [&] { TimeTracking::add(context, {}, now, calendar.addingDays(now, -1)); },
        [&] { TimeTracking::start(context, {}, tomorrow); },
        [&] {
            static_cast<void>(WorkTimes::read(context, "soon", today, {now, calendar, library.formats().locale()}));
        },
        [&] { addRecord<TaxRate>(environment, Arguments(nothing)); },
        [&] { addRecord<Project>(environment, Arguments(known)); },
        [&] { ContactOperations::add(environment, *context.fetch<Client>("").front(), Arguments(nothing)); },
        [&] { static_cast<void>(EmailTemplates::checked({.subject = "", .body = "Hallo"})); },
        [&] { const CSV empty{std::string()}; },
        [&] { static_cast<void>(readFile("/", 10)); },
        [&] { static_cast<void>(Backups("/fehlt", DataModel::history(), calendar).makeNow(now)); },
        [&] { LockFile({}).setPassphrase({}, "short", now); },
    };
    for (std::size_t place = 0; place < cases.size(); ++place) {
        expectGerman(refusal(window, cases[place]), std::to_string(place));
    }
}

} // namespace
} // namespace Quillary
