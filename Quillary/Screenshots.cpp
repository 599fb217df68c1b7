#include "Quillary/Screenshots.h"

#include "Quillary/PrintingHost.h"
#include "Quillary/SampleHistory.h"
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
#include "QuillaryUI/Documents/DocumentPane.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/Sheet.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Look/Translation.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>

#include <fmt/format.h>

#include <chrono>
#include <cstdint>
#include <utility>

namespace Quillary::Screenshots {

namespace {

namespace fs = std::filesystem;

constexpr int width = 1440;
constexpr int height = 900;
constexpr int patience = 10'000; ///< milliseconds until a page must be there
constexpr QRgb accent = 0xff1f5fbf;

/// Until every page that is on the screen has been printed.
void wait(MainWindow& window)
{
    QElapsedTimer time;
    time.start();
    const auto isReady = [&window] {
        for (const PaperView* paper : window.findChildren<PaperView*>()) {
            if (paper->isVisible() && paper->pdf().empty()) {
                return false;
            }
        }
        return true;
    };
    constexpr int settling = 250;
    while (time.elapsed() < settling || (!isReady() && time.elapsed() < patience)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
}

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

void save(const fs::path& folder, const std::string& name, Theme::Scheme scheme, MainWindow& window)
{
    wait(window);
    const fs::path file = folder / fmt::format("{}-{}.png", name, scheme == Theme::Scheme::dark ? "dark" : "light");
    if (!window.grab().save(QString::fromStdString(file.string()))) {
        throw UserError(fmt::format("{} couldn't be written.", file.string()));
    }
}

/// A draft in its editor, and what slides in above it.
int drawEditor(const fs::path& folder, Theme::Scheme scheme, std::int64_t invoice, MainWindow& window)
{
    window.showDocument(invoice);
    DocumentPane& pane = dynamic_cast<DocumentsSection&>(*window.section(QStringLiteral("invoices"))).pane();
    const auto run = [&pane](const char* action) {
        pane.findChild<QAction*>(QString::fromLatin1(action))->trigger();
    };
    run("duplicate");
    pane.beginEditing();
    save(folder, "editor", scheme, window);
    int count = 1;
    for (const auto& [action, name] : {std::pair("email", "email"), std::pair("makeRecurring", "make-recurring")}) {
        run(action);
        save(folder, name, scheme, window);
        pane.findChild<Sheet*>(QStringLiteral("sheet"))->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        count += 1;
    }
    return count;
}

int drawScheme(const fs::path& folder, Theme::Scheme scheme, LibraryAccess& library, std::int64_t invoice)
{
    Theme::apply(*static_cast<QApplication*>(QCoreApplication::instance()), scheme, QColor(accent));
    MainWindow window(library, {});
    window.resize(width, height);
    window.show();
    int count = 0;
    for (const QString& name : window.sectionNames()) {
        window.showSection(name);
        save(folder, utf8(name), scheme, window);
        for (const QString& page : window.section(name)->pageNames()) {
            window.section(name)->showPage(page);
            save(folder, fmt::format("{}-{}", utf8(name), utf8(page)), scheme, window);
            count += 1;
        }
        count += 1;
    }
    return count + drawEditor(folder, scheme, invoice, window);
}

} // namespace

int draw(const fs::path& folder, PrintingHost& host, const Locale& words)
{
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) {
        throw UserError(fmt::format("{} couldn't be made: {}", folder.string(), failure.message()));
    }
    const DocumentLanguage language = documentLanguage(words.languageCode());
    const Locale locale = language == DocumentLanguage::english ? Locale("en_GB") : words;
    Translation::install(*QCoreApplication::instance(), words, locale);
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
    int count = 0;
    for (const Theme::Scheme scheme : {Theme::Scheme::light, Theme::Scheme::dark}) {
        count += drawScheme(folder, scheme, library, samples.samples().front().document->ref.key());
    }
    library.close();
    return count;
}

} // namespace Quillary::Screenshots
