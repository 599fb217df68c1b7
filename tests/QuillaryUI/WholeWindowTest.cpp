// Every page of the window as those meet it who don't see it, who have no mouse, or who read German.
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Clients/ClientsSection.h"
#include "QuillaryUI/Documents/DocumentsSection.h"
#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/Sheet.h"
#include "QuillaryUI/Look/Translation.h"
#include "QuillaryUI/Main/FirstStart.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Main/QuickOpen.h"
#include "tests/QuillaryUI/TranslationFile.h"
#include "tests/QuillaryUI/WindowLibrary.h"
#include "tests/Support/TempFolder.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <utility>

namespace Quillary {
namespace {

/// Some hundred steps are more than any page has.
constexpr int mostSteps = 400;

std::string called(const QWidget& widget)
{
    return widget.metaObject()->className() + std::string(" ") + widget.objectName().toStdString();
}

/// What Tab stops at: parts that Qt's own controls are made of lead to their control.
bool isControl(const QWidget& widget)
{
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0 &&
           widget.focusProxy() == nullptr;
}

/// Where the walk begins: the sidebar, where there is one.
QWidget* firstControl(const QWidget& root)
{
    auto* sidebar = root.findChild<QWidget*>(QStringLiteral("sidebar"));
    if (sidebar != nullptr && sidebar->isVisible()) {
        return sidebar;
    }
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        if (isControl(*widget)) {
            return widget;
        }
    }
    return nullptr;
}

class WholeWindowTest : public testing::Test
{
protected:
    ~WholeWindowTest() override { Translation::install(*qApp, Locale("en_US"), Locale("en_US")); }

    void open(const char* language)
    {
        Translation::install(*qApp, Locale(language), Locale("en_GB"));
        EXPECT_FALSE(data.library.perform(QStringLiteral("Number drafts"), [this] {
            const AssistantEnvironment& environment = data.library.environment();
            BusinessSettings::set(environment, "invoice_number_format", Business::defaultInvoiceFormat);
            BusinessSettings::set(environment, "quote_number_format", Business::defaultQuoteFormat);
        }));
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.path().string()));
        places.lock = folder / "lock.json";
        places.now = [this] {
            return data.library.now();
        };
        window = std::make_unique<MainWindow>(data.library, places);
        window->resize(1440, 900);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    using Look = std::function<void(const std::string& page, QWidget& window)>;

    void visitPages(const Look& look)
    {
        for (const QString& name : window->sectionNames()) {
            window->showSection(name);
            Section* section = window->section(name);
            QStringList pages = section->pageNames();
            if (pages.isEmpty()) {
                pages.push_back({});
            }
            for (const QString& page : pages) {
                if (!page.isEmpty()) {
                    section->showPage(page);
                }
                QTest::qWait(20);
                look((name + QLatin1Char(' ') + page).toStdString(), *window);
            }
            section->makeNew(); // the editor of a draft, a sheet
            QTest::qWait(20);
            if (name == QLatin1String("invoices")) {
                EXPECT_TRUE(window->findChild<DraftEditor*>()->isVisible());
            }
            look((name + QStringLiteral(" new")).toStdString(), *window);
            QTest::keyClick(window.get(), Qt::Key_Escape);
        }
    }

    /// What slides in above a section, or covers it.
    void visitSheets(const Look& look)
    {
        Context& context = data.samples.context();
        const Document& invoice = *context.first<Document>("kindRaw = 0 AND statusRaw = 1 ORDER BY dueDate");
        static_cast<void>(data.library.perform(QStringLiteral("Work"), [&] {
            const Instant now = context.clock().now();
            TimeTracking::add(context, {.client = invoice.client}, now - std::chrono::hours(2), now);
            for (const Document* late : context.fetch<Document>("kindRaw = 0 AND statusRaw = 1")) {
                context.edit(*late).dueDate = now - std::chrono::days(20);
            }
        }));
        const QString list = QString::fromStdString(folder.write("list.csv", "Kunde;Ort\nNeue Kunst;Basel\n").string());
        window->showSection(QStringLiteral("clients"));
        dynamic_cast<ClientsSection&>(*window->section(QStringLiteral("clients"))).setFileChooser([list](QWidget*) {
            return list;
        });
        window->showDocument(invoice.ref.key());
        for (const char* action : {"pay", "remind", "email", "makeRecurring"}) {
            visitSheet("invoices", action, look);
        }
        auto& invoices = dynamic_cast<DocumentsSection&>(*window->section(QStringLiteral("invoices")));
        invoices.setView({.status = DisplayStatus::overdue});
        child<QTableView>(invoices, "documentList").selectAll();
        QTest::qWait(20);
        visitSheet("invoices", "remindAll", look);
        visitSheet("clients", "importClients", look);
        window->showClient(invoice.client.key());
        visitSheet("clients", "addContact", look);
        visitSheet("time", "invoiceTime", look);

        QTest::keyClick(window.get(), Qt::Key_K, Qt::ControlModifier);
        auto& quick = child<QuickOpen>(*window, "quickOpen");
        ASSERT_TRUE(QTest::qWaitForWindowActive(&quick));
        look("quick open", quick);
        quick.close();
        FirstStart first(data.library);
        first.resize(1200, 800);
        first.show();
        first.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&first));
        look("first start", first);
        first.close();
        lockAndLook(look);
    }

    void visitSheet(const char* name, const char* command, const Look& look)
    {
        window->showSection(QString::fromLatin1(name));
        const Section& section = *window->section(QString::fromLatin1(name));
        if (auto* action = section.findChild<QAction*>(QString::fromLatin1(command))) {
            ASSERT_TRUE(action->isVisible()) << command;
            action->trigger();
        } else {
            child<QPushButton>(section, command).click();
        }
        QTest::qWait(20);
        auto* sheet = section.findChild<Sheet*>();
        ASSERT_TRUE(sheet != nullptr && sheet->isVisible()) << command;
        look(command, *window);
        delete sheet;
    }

    void lockAndLook(const Look& look)
    {
        LockFile(places.lock).setPassphrase("", "quill & ink", data.library.now());
        MainWindow other(data.library, places); // which starts locked
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        ASSERT_TRUE(other.isLocked());
        look("lock", other);
    }

    TempFolder folder;
    ProgramPlaces places;
    WindowLibrary data;
    std::unique_ptr<MainWindow> window;
};

/// The button in the sidebar takes no keyboard: what is being typed about the work has not been saved by leaving it.
TEST_F(WholeWindowTest, stopsTheTimerWithTheNoteThatIsBeingTyped)
{
    open("en_US");
    window->showSection(QStringLiteral("time"));
    child<QPushButton>(*window, "timerButton").click();
    WindowLibrary::settle();
    auto& note = child<QLineEdit>(*window, "timerNote");
    note.setFocus();
    QTest::keyClicks(&note, QStringLiteral("Proofs"));
    QTest::mouseClick(&child<QToolButton>(*window, "stopTimer"), Qt::LeftButton);
    const auto* entry = data.library.context().first<TimeEntry>("");
    ASSERT_TRUE(entry != nullptr && entry->end);
    EXPECT_EQ(entry->note, "Proofs");
}

TEST_F(WholeWindowTest, tellsWhatEachControlIs)
{
    open("en_US");
    const Look look = [](const std::string& page, QWidget& root) {
        std::map<std::tuple<const QWidget*, QString, int>, const QWidget*> siblings;
        for (QWidget* widget : root.findChildren<QWidget*>()) {
            if (!isControl(*widget)) {
                continue;
            }
            QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(told, nullptr) << page << called(*widget);
            const QString name = told->text(QAccessible::Name);
            EXPECT_FALSE(name.trimmed().isEmpty()) << page << ": no name: " << called(*widget);
            EXPECT_FALSE(QSet({QAccessible::NoRole, QAccessible::Client, QAccessible::Pane}).contains(told->role()))
                << page << ": no role: " << called(*widget);
            const auto [other, isNew] =
                siblings.emplace(std::tuple(widget->parentWidget(), name, int(told->role())), widget);
            EXPECT_TRUE(isNew) << page << ": both are called " << name.toStdString() << ": " << called(*widget) << ", "
                               << called(*other->second);
        }
        for (const QAbstractItemView* view : root.findChildren<QAbstractItemView*>()) {
            for (int column = 0; view->isVisible() && column < view->model()->columnCount(); ++column) {
                const QVariant title = view->model()->headerData(column, Qt::Horizontal);
                EXPECT_FALSE(title.toString().isEmpty()) << page << ": no title: " << called(*view) << column;
            }
        }
    };
    visitPages(look);
    visitSheets(look);
}

TEST_F(WholeWindowTest, isReachedByTabAlone)
{
    open("en_US");
    const Look look = [](const std::string& page, QWidget& root) {
        QSet<const QWidget*> reached;
        QWidget* first = firstControl(root);
        ASSERT_NE(first, nullptr) << page;
        first->setFocus(Qt::TabFocusReason);
        int steps = 0;
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            ASSERT_NE(QApplication::focusWidget(), nullptr) << page;
            reached.insert(QApplication::focusWidget());
        } while (QApplication::focusWidget() != first && ++steps < mostSteps);
        EXPECT_EQ(QApplication::focusWidget(), first)
            << page << ": Tab stays at " << called(*QApplication::focusWidget());
        for (const QWidget* widget : root.findChildren<QWidget*>()) {
            EXPECT_TRUE(!isControl(*widget) || reached.contains(widget)) << page << ": passed by: " << called(*widget);
        }
    };
    visitPages(look);
    visitSheets(look);
}

QStringList cellTexts(const QAbstractItemModel& model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column) {
        texts += model.headerData(column, Qt::Horizontal).toString();
        for (int row = 0; row < model.rowCount(); ++row) {
            texts += model.index(row, column).data().toString();
        }
    }
    return texts;
}

QStringList textsOf(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return {label->text()};
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return {button->text()};
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
        return {line->placeholderText()};
    }
    if (const auto* paragraphs = qobject_cast<const QPlainTextEdit*>(&widget)) {
        return {paragraphs->placeholderText()};
    }
    if (const auto* choice = qobject_cast<const QComboBox*>(&widget)) {
        return cellTexts(*choice->model());
    }
    const auto* view = qobject_cast<const QAbstractItemView*>(&widget);
    return view != nullptr ? cellTexts(*view->model()) : QStringList();
}

/// Whatever is on the screen. The samples are in English, but none of them says what the window says.
QStringList shownTexts(const QWidget& window)
{
    QStringList texts;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible()) {
            texts += {widget->accessibleName(), widget->toolTip()};
            texts += textsOf(*widget);
        }
    }
    for (const QAction* action : window.findChildren<QAction*>()) {
        texts += action->text();
    }
    return texts;
}

TEST_F(WholeWindowTest, isGermanThroughout)
{
    QSet<QString> english;
    for (const TranslatedText& text : translatedTexts()) {
        if (text.german != text.source) {
            english.insert(text.source);
        }
    }
    for (const TranslatedText& text : translatedTexts()) {
        english.remove(text.german); // a word of both languages
    }
    // Countries are named as numbers are written.
    for (const char* country : {"Germany", "Austria", "Canary Islands", "French Polynesia", "New Caledonia"}) {
        english.remove(QString::fromLatin1(country));
    }
    open("de_DE");
    const Look look = [&english](const std::string& page, const QWidget& root) {
        for (const QString& text : shownTexts(root)) {
            EXPECT_FALSE(english.contains(text)) << page << ": " << text.toStdString();
        }
    };
    visitPages(look);
    visitSheets(look);
}

} // namespace
} // namespace Quillary
