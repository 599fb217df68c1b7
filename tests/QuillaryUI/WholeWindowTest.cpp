// Every page of the window as those meet it who don't see it, who have no mouse, or who read German.
#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/DraftEditor.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/Translation.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "tests/QuillaryUI/TranslationFile.h"
#include "tests/QuillaryUI/WindowLibrary.h"

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
#include <QSplitter>
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
        window = std::make_unique<MainWindow>(data.library, ProgramPlaces());
        window->resize(1440, 900);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void visitPages(const std::function<void(const std::string& page)>& look)
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
                look((name + QLatin1Char(' ') + page).toStdString());
            }
            section->makeNew(); // the editor of a draft, a sheet
            QTest::qWait(20);
            if (name == QLatin1String("invoices")) {
                EXPECT_TRUE(window->findChild<DraftEditor*>()->isVisible());
            }
            look((name + QStringLiteral(" new")).toStdString());
            QTest::keyClick(window.get(), Qt::Key_Escape);
        }
    }

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
    visitPages([this](const std::string& page) {
        std::map<std::tuple<const QWidget*, QString, int>, const QWidget*> siblings;
        for (QWidget* widget : window->findChildren<QWidget*>()) {
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
        for (const QAbstractItemView* view : window->findChildren<QAbstractItemView*>()) {
            for (int column = 0; view->isVisible() && column < view->model()->columnCount(); ++column) {
                const QVariant title = view->model()->headerData(column, Qt::Horizontal);
                EXPECT_FALSE(title.toString().isEmpty()) << page << ": no title: " << called(*view) << column;
            }
        }
    });
}

TEST_F(WholeWindowTest, isReachedByTabAlone)
{
    open("en_US");
    visitPages([this](const std::string& page) {
        QSet<const QWidget*> reached;
        QWidget* first = window->findChild<QWidget*>(QStringLiteral("sidebar"));
        first->setFocus(Qt::TabFocusReason);
        int steps = 0;
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            ASSERT_NE(QApplication::focusWidget(), nullptr) << page;
            reached.insert(QApplication::focusWidget());
        } while (QApplication::focusWidget() != first && ++steps < mostSteps);
        EXPECT_EQ(QApplication::focusWidget(), first)
            << page << ": Tab stays at " << called(*QApplication::focusWidget());
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            EXPECT_TRUE(!isControl(*widget) || reached.contains(widget)) << page << ": passed by: " << called(*widget);
        }
    });
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
    english -= {QStringLiteral("Germany"), QStringLiteral("Austria")}; // countries are named as numbers are written
    open("de_DE");
    visitPages([&](const std::string& page) {
        for (const QString& text : shownTexts(*window)) {
            EXPECT_FALSE(english.contains(text)) << page << ": " << text.toStdString();
        }
    });
}

} // namespace
} // namespace Quillary
