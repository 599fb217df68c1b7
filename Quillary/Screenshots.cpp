#include "Quillary/Screenshots.h"

#include "Quillary/PrintingHost.h"
#include "Quillary/SampleHistory.h"
#include "Quillary/ScreenshotScenes.h"
#include "QuillaryCore/Assistant/Access/ActivityEntry.h"
#include "QuillaryCore/Assistant/Access/ActivityLog.h"
#include "QuillaryCore/Assistant/Access/AssistantSettings.h"
#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Assistant/Operations/ContactOperations.h"
#include "QuillaryCore/Assistant/Operations/RecordFields.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/CustomUnit.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TextPreset.h"
#include "QuillaryCore/Samples/SampleLibrary.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Look/Translation.h"
#include "QuillaryUI/Main/MainWindow.h"

#include <QApplication>
#include <QTemporaryDir>

#include <fmt/format.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace Quillary::Screenshots {

namespace {

namespace fs = std::filesystem;

constexpr int width = 1440;
constexpr int height = 900;
constexpr QRgb accent = 0xff1f5fbf;

/// Two days of work, an hour still to bill on each, and a timer that runs: the samples are of documents alone.
void addTime(SampleLibrary& samples)
{
    Context& context = samples.context();
    const Instant now = context.clock().now();
    const Ref<Client> client = samples.samples().front().document->client;
    auto scope = context.beginScope("Add time");
    TimeTracking::Work work{.client = client, .note = "Layout of the spring issue"};
    const Instant morning = samples.calendar().startOfDay(now) + std::chrono::hours(8);
    TimeTracking::add(context, work, morning, morning + std::chrono::minutes(90));
    work.note = "Telephone consultation";
    TimeTracking::add(context, work, morning + std::chrono::hours(2), morning + std::chrono::minutes(135));
    const Instant before = morning - std::chrono::days(1);
    work.note = "Proofs, first round";
    TimeTracking::add(context, work, before, before + std::chrono::minutes(200));
    work.isBillable = false;
    work.note = "Office";
    TimeTracking::add(context, work, before + std::chrono::hours(4), before + std::chrono::hours(5));
    TimeTracking::start(context, {.client = client, .note = "Proofs, second round"}, now - std::chrono::minutes(47));
    scope.commit();
}

template <class Record>
void add(const AssistantEnvironment& environment, const JSON& details)
{
    auto scope = environment.context.beginScope("Samples");
    static_cast<void>(addRecord<Record>(environment, Arguments(details)));
    scope.commit();
}

/// Whom one writes to at a client.
void addContacts(const AssistantEnvironment& environment)
{
    auto scope = environment.context.beginScope("Samples");
    for (const Client* client : environment.context.fetch<Client>("kindRaw = 0")) {
        for (const JSON& person :
             {JSON::object({{"name", "Ines Carvalho"},
                            {"role", "Accounting"},
                            {"email", "accounts@example.com"},
                            {"phone", "+44 20 7946 0112"}}),
              JSON::object({{"name", "Tom Becker"}, {"role", "Marketing"}, {"email", "t.becker@example.com"}})}) {
            ContactOperations::add(environment, *client, Arguments(person));
        }
    }
    scope.commit();
}

/// What the documents of the samples might have been made of.
void fillOut(const AssistantEnvironment& environment)
{
    auto scope = environment.context.beginScope("Samples");
    BusinessSettings::set(environment, "invoice_number_format", Business::defaultInvoiceFormat);
    BusinessSettings::set(environment, "quote_number_format", Business::defaultQuoteFormat);
    BusinessSettings::set(environment, "credit_note_number_format", Business::defaultCreditNoteFormat);
    BusinessSettings::set(environment, "client_number_format", Business::defaultClientFormat);
    BusinessSettings::set(environment, "file_name_format", Business::defaultFileNameFormat);
    scope.commit();
    addContacts(environment);
    add<TaxRate>(environment, JSON::object({{"name", "Standard"}, {"rate", "20"}, {"default", true}}));
    add<TaxRate>(environment, JSON::object({{"name", "Reduced"}, {"rate", "5"}}));
    add<CatalogItem>(environment,
                     JSON::object({{"name", "Consulting"}, {"price", "95"}, {"unit", "hour"}, {"tax_rate", "20"}}));
    add<CatalogItem>(environment,
                     JSON::object({{"name", "Brand workshop"},
                                   {"price", "1250"},
                                   {"unit", "day"},
                                   {"details", "A day with up to eight people, notes included."}}));
    add<Project>(environment, JSON::object({{"name", "Website relaunch"}}));
    add<CustomUnit>(environment, JSON::object({{"singular", "session"}, {"plural", "sessions"}}));
    add<TextPreset>(environment,
                    JSON::object({{"title", "Thanks"},
                                  {"kind", "outro"},
                                  {"text", "Thank you for your trust. We look forward to working with you again."}}));
}

/// What the pictures can't know by themselves.
struct Subjects
{
    std::int64_t invoice; ///< the key of the one that a draft is made from
    const std::string& assistantSetup;
};

/// Two assistants and what one of them did; for as long as the folder.
ProgramPlaces placesIn(const QTemporaryDir& folder, const std::string& setup, Instant now)
{
    ProgramPlaces places;
    places.assistantSettings = utf8(folder.filePath(QString::fromLatin1(AssistantSettingsFile::fileName)));
    places.activityLog = utf8(folder.filePath(QString::fromLatin1(ActivityLog::fileName)));
    places.assistantSetup = setup;
    AssistantSettingsFile(places.assistantSettings).change([now](AssistantSettings& settings) {
        settings.isOn = true;
        settings.decide("Desk Helper", AssistantApproval::allowed);
        settings.keepWaiting("Bookkeeping Bot", now);
    });
    ActivityLog(places.activityLog)
        .append({.time = now,
                 .assistant = "Desk Helper",
                 .tool = "create_document",
                 .summary = "Draft of an invoice over 1,250.00",
                 .outcome = CallOutcome::done});
    return places;
}

int drawScheme(const fs::path& folder, Theme::Scheme scheme, LibraryAccess& library, const Subjects& subjects)
{
    Theme::apply(*static_cast<QApplication*>(QCoreApplication::instance()), scheme, QColor(accent));
    const QTemporaryDir settings;
    MainWindow window(library, placesIn(settings, subjects.assistantSetup, library.now()));
    window.resize(width, height);
    window.show();
    ScreenshotScenes scenes(folder, scheme, library);
    for (const QString& name : window.sectionNames()) {
        window.showSection(name);
        scenes.draw(utf8(name), window);
        for (const QString& page : window.section(name)->pageNames()) {
            window.section(name)->showPage(page);
            scenes.draw(fmt::format("{}-{}", utf8(name), utf8(page)), window);
        }
    }
    scenes.drawDocuments(subjects.invoice, window);
    scenes.drawOthers(window);
    scenes.drawBeginnings();
    scenes.drawEmpty(window);
    return scenes.count();
}

} // namespace

int draw(const fs::path& folder, PrintingHost& host, const Locale& words, const std::string& assistantSetup)
{
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) {
        throw UserError(fmt::format("{} couldn't be made: {}", folder.string(), failure.message()));
    }
    const DocumentLanguage language = documentLanguage(words.languageCode());
    const Locale locale = language == DocumentLanguage::english ? Locale("en_GB") : words;
    Translation::install(*QCoreApplication::instance(), words, locale);
    int count = 0;
    for (const Theme::Scheme scheme : {Theme::Scheme::light, Theme::Scheme::dark}) {
        SampleLibrary samples(language);
        addTime(samples);
        addHistory(samples);
        LibrarySearch search(samples.context());
        LibraryAccess library(host, Formats(locale, samples.calendar()));
        library.open({.context = samples.context(),
                      .business = samples.business().ref,
                      .host = &host,
                      .assistantName = {},
                      .clock = samples.context().clock(),
                      .calendar = samples.calendar(),
                      .locale = locale,
                      .search = &search});
        fillOut(library.environment());
        count += drawScheme(folder, scheme, library, {samples.samples().front().document->ref.key(), assistantSetup});
        library.close();
    }
    return count;
}

} // namespace Quillary::Screenshots
