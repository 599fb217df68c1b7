// The window's frame: what holds whichever section is in front.
#include "QuillaryCore/Lock/LockFile.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Main/QuickOpen.h"
#include "tests/QuillaryUI/WindowLibrary.h"
#include "tests/Support/TempFolder.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace Quillary {
namespace {

class ShellTest : public testing::Test
{
protected:
    ShellTest()
    {
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.path().string()));
        places.lock = folder / "lock.json";
        places.now = [this] {
            return now;
        };
    }

    static void press(MainWindow& window, Qt::Key key)
    {
        QTest::keyClick(window.windowHandle(), key, Qt::ControlModifier);
        QCoreApplication::processEvents();
    }

    static void show(MainWindow& window)
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    TempFolder folder;
    Instant now{std::chrono::seconds(1'770'000'000)};
    ProgramPlaces places;
    WindowLibrary windows;
};

TEST_F(ShellTest, hidesEverythingBehindTheLock)
{
    MainWindow window(windows.library, places);
    show(window);
    window.showSection(QStringLiteral("invoices"));
    press(window, Qt::Key_L); // there is nothing to lock with: it shows where that is set
    auto& settings = *window.section(QStringLiteral("settings"));
    ASSERT_FALSE(window.isLocked());
    auto& fresh = child<QLineEdit>(settings, "newPassphrase");
    ASSERT_TRUE(fresh.isVisible());
    QTest::keyClicks(&fresh, QStringLiteral("quill & ink"));
    QTest::keyClicks(&child<QLineEdit>(settings, "newPassphraseAgain"), QStringLiteral("quill & ink"));
    QTest::mouseClick(&child<QPushButton>(settings, "setPassphrase"), Qt::LeftButton);

    window.showSection(QStringLiteral("invoices"));
    press(window, Qt::Key_K);
    auto& quick = child<QuickOpen>(window, "quickOpen");
    EXPECT_TRUE(quick.isVisible());
    QTest::keyClick(&quick, Qt::Key_Escape);
    window.activateWindow();
    show(window);
    press(window, Qt::Key_L);
    ASSERT_TRUE(window.isLocked());
    EXPECT_TRUE(LockFile(places.lock).isLocked()); // which is what assistants are refused by
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const auto& page = child<QWidget>(window, "lockPage");
        EXPECT_FALSE(widget->isVisible() && widget != &page && !page.isAncestorOf(widget) &&
                     !widget->isAncestorOf(&page))
            << widget->metaObject()->className() << ' ' << utf8(widget->objectName());
    }
    const auto documents = windows.samples.context().count<Document>("");
    for (const Qt::Key key : {Qt::Key_K, Qt::Key_N, Qt::Key_2, Qt::Key_D, Qt::Key_Z, Qt::Key_Comma}) {
        press(window, key);
    }
    EXPECT_TRUE(child<QWidget>(window, "lockPage").isVisible());
    EXPECT_EQ(windows.samples.context().count<Document>(""), documents);
    for (const QuickOpen* open : window.findChildren<QuickOpen*>()) {
        EXPECT_FALSE(open->isVisible());
    }

    auto& passphrase = child<QLineEdit>(window, "lockPassphrase");
    QTest::keyClicks(&passphrase, QStringLiteral("quill"));
    QTest::keyClick(&passphrase, Qt::Key_Return);
    EXPECT_TRUE(window.isLocked());
    EXPECT_FALSE(child<QLabel>(window, "lockError").text().isEmpty());

    MainWindow later(windows.library, places); // starting anew is no way around
    EXPECT_TRUE(later.isLocked());
    passphrase.clear();
    QTest::keyClicks(&passphrase, QStringLiteral("quill & ink"));
    QTest::keyClick(&passphrase, Qt::Key_Return);
    EXPECT_FALSE(window.isLocked());
    EXPECT_TRUE(window.section(QStringLiteral("invoices"))->isVisible());
    EXPECT_TRUE(window.menuBar()->isVisible());
}

TEST_F(ShellTest, locksByItselfAfterATimeWithoutInput)
{
    LockFile file(places.lock);
    file.setPassphrase("", "quill & ink", now);
    file.setIdleMinutes(1);
    MainWindow window(windows.library, places);
    show(window);
    auto& passphrase = child<QLineEdit>(window, "lockPassphrase");
    QTest::keyClicks(&passphrase, QStringLiteral("quill & ink"));
    QTest::keyClick(&passphrase, Qt::Key_Return);
    ASSERT_FALSE(window.isLocked());

    window.showSection(QStringLiteral("settings"));
    auto& settings = *window.section(QStringLiteral("settings"));
    settings.showPage(QStringLiteral("security"));
    auto& fresh = child<QLineEdit>(settings, "newPassphrase");
    QTest::keyClicks(&fresh, QStringLiteral("half of it"));
    auto& idle = child<QComboBox>(settings, "lockIdle");
    idle.setCurrentIndex(idle.findData(5));
    Q_EMIT idle.activated(idle.currentIndex());
    EXPECT_EQ(LockFile(places.lock).current().idleMinutes, 5);
    EXPECT_EQ(fresh.text(), QStringLiteral("half of it")) << "another setting took what was being typed";
    now += std::chrono::seconds(301);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.isLocked(); }));
}

} // namespace
} // namespace Quillary
