#include "Quillary/ScreenshotScenes.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Clients/ClientsSection.h"
#include "QuillaryUI/Documents/DocumentPane.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/Sheet.h"
#include "QuillaryUI/Main/FirstStart.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Main/QuickOpen.h"
#include "QuillaryUI/Paper/DesignPicker.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QTableView>
#include <QTemporaryDir>

#include <fmt/format.h>

#include <memory>
#include <utility>

namespace Quillary {

namespace {

constexpr int patience = 60'000; ///< milliseconds until a page must be there
constexpr int settling = 250;

/// Until every page that is on the screen has been printed.
void wait(const QWidget& window)
{
    QElapsedTimer time;
    time.start();
    const auto isReady = [&window] {
        for (const PaperView* paper : window.findChildren<PaperView*>()) {
            if (paper->isVisible() && paper->pdf().empty()) {
                return false;
            }
        }
        const auto* designs = window.findChild<DesignPicker*>();
        return designs == nullptr || designs->isReady();
    };
    while (time.elapsed() < settling || (!isReady() && time.elapsed() < patience)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// Does what a button or an action of this name does that is in sight. Throws: `UserError`.
void run(const QString& command, const MainWindow& window)
{
    for (auto* button : window.findChildren<QAbstractButton*>(command)) {
        if (button->isVisible()) {
            button->click();
            return;
        }
    }
    for (auto* action : window.findChildren<QAction*>(command)) {
        if (action->isVisible() && qobject_cast<QWidget*>(action->parent())->isVisible()) {
            action->trigger();
            return;
        }
    }
    throw UserError(fmt::format("The window has no \"{}\" to draw.", utf8(command)));
}

template <class Record>
void eraseAll(Context& context)
{
    for (const Record* record : context.fetch<Record>("")) {
        context.erase(*record);
    }
}

} // namespace

ScreenshotScenes::ScreenshotScenes(std::filesystem::path folder, Theme::Scheme scheme, LibraryAccess& library)
    : m_folder(std::move(folder))
    , m_scheme(scheme)
    , m_library(library)
{
}

void ScreenshotScenes::save(const std::string& name, const QPixmap& picture)
{
    const auto file = m_folder / fmt::format("{}-{}.png", name, m_scheme == Theme::Scheme::dark ? "dark" : "light");
    if (!picture.save(QString::fromStdString(file.string()))) {
        throw UserError(fmt::format("{} couldn't be written.", file.string()));
    }
    m_count += 1;
}

void ScreenshotScenes::draw(const std::string& name, MainWindow& window)
{
    wait(window);
    save(name, window.grab());
}

void ScreenshotScenes::drawSheet(const std::string& name, const char* command, MainWindow& window)
{
    run(QString::fromLatin1(command), window);
    draw(name, window);
    for (Sheet* sheet : window.findChildren<Sheet*>()) {
        sheet->close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void ScreenshotScenes::drawDocuments(std::int64_t invoice, MainWindow& window)
{
    window.showDocument(invoice);
    auto& section = dynamic_cast<DocumentsSection&>(*window.section(QStringLiteral("invoices")));
    section.pane().findChild<QAction*>(QStringLiteral("duplicate"))->trigger();
    section.pane().beginEditing();
    draw("editor", window);
    drawSheet("email", "email", window);
    drawSheet("make-recurring", "makeRecurring", window);
    section.pane().endEditing();

    section.setStatus(DisplayStatus::overdue);
    auto& list = *section.findChild<QTableView*>(QStringLiteral("documentList"));
    list.selectRow(0);
    drawSheet("payment", "pay", window);
    drawSheet("reminder", "remind", window);
    list.selectAll();
    draw("several", window);
    drawSheet("reminders", "remindAll", window);
    section.setView({});
}

void ScreenshotScenes::drawQuickOpen(MainWindow& window)
{
    const auto quick = std::make_unique<QuickOpen>(m_library, &window);
    quick->setAttribute(Qt::WA_DeleteOnClose, false);
    quick->begin();
    quick->findChild<QLineEdit*>()->setText(QStringLiteral("20"));
    wait(window);
    QPixmap picture = window.grab();
    QPainter(&picture).drawPixmap(quick->pos() - window.pos(), quick->grab());
    save("quick-open", picture);
}

void ScreenshotScenes::drawOthers(MainWindow& window)
{
    window.showSection(QStringLiteral("clients"));
    drawSheet("client-new", "newClient", window);
    drawSheet("contact", "addContact", window);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("clients.csv")));
    if (file.open(QIODevice::WriteOnly)) {
        file.write("Company;City;Country;Member\nSea Breeze Ltd;Hove;Great Britain;yes\nNorthwind Energy plc;Leeds;;\n"
                   "Otto & Co;Graz;Nowhere;no\n");
        file.close();
    }
    dynamic_cast<ClientsSection&>(*window.section(QStringLiteral("clients"))).setFileChooser([&file](QWidget*) {
        return file.fileName();
    });
    drawSheet("import", "importClients", window);
    window.showSection(QStringLiteral("recurring"));
    drawSheet("recurring-new", "newRecurring", window);
    drawSheet("schedule", "scheduleRecurring", window);
    drawSheet("recurring-editor", "editRecurring", window); // no sheet: it stands beside the page
    window.section(QStringLiteral("recurring"))->findChild<QAbstractButton*>(QStringLiteral("editRecurring"))->click();
    window.showSection(QStringLiteral("time"));
    drawSheet("time-entry", "addTime", window);
    drawSheet("invoice-time", "invoiceTime", window);
    drawQuickOpen(window);
}

void ScreenshotScenes::drawBeginnings()
{
    FirstStart first(m_library);
    first.resize(1440, 900);
    first.show();
    wait(first);
    save("first-start", first.grab());

    const QTemporaryDir folder;
    ProgramPlaces places;
    places.lock = utf8(folder.filePath(QStringLiteral("lock.json")));
    places.now = [this] {
        return m_library.now();
    };
    LockFile(places.lock).setPassphrase("", "quill & ink", m_library.now());
    MainWindow locked(m_library, places);
    locked.resize(1440, 900);
    locked.show();
    draw("lock", locked);
}

void ScreenshotScenes::drawEmpty(MainWindow& window)
{
    Context& context = m_library.context();
    if (const auto refusal = m_library.perform(QStringLiteral("Empty"), [&context] {
            eraseAll<TimeEntry>(context);
            eraseAll<Document>(context);
            eraseAll<CatalogItem>(context);
            eraseAll<Client>(context);
        })) {
        throw UserError(utf8(*refusal));
    }
    wait(window); // whoever shows the records hears of it first
    for (const QString& name : window.sectionNames()) {
        if (name != QLatin1String("settings")) {
            window.showSection(name);
            draw("empty-" + utf8(name), window);
        }
    }
}

} // namespace Quillary
