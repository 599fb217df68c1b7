#include "tests/Quillary/WindowJourney.h"

#include "QuillaryCore/Foundation/Files.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

namespace Quillary {

bool WindowJourney::comesTrue(const std::function<bool()>& condition)
{
    QElapsedTimer time;
    time.start();
    while (!condition() && time.elapsed() < patience) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // what is closed is gone
    }
    return condition();
}

void WindowJourney::putOffFirstStart()
{
    click("firstStartLater");
}

void WindowJourney::click(const char* button)
{
    auto& found = find<QAbstractButton>(button);
    ASSERT_TRUE(found.isVisible() && found.isEnabled()) << button;
    QTest::mouseClick(&found, Qt::LeftButton);
}

void WindowJourney::type(const char* field, const QString& typed)
{
    auto& line = find<QLineEdit>(field);
    line.setFocus();
    line.selectAll();
    QTest::keyClicks(&line, typed);
}

void WindowJourney::pickClient(const char* field, const QString& typed)
{
    type(field, typed);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr) << utf8(typed);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    QCoreApplication::processEvents();
}

void WindowJourney::choose(const char* field, const QString& words)
{
    auto& choices = find<QComboBox>(field);
    const int wanted = choices.findText(words, Qt::MatchContains);
    ASSERT_GE(wanted, 0) << utf8(words);
    choices.setFocus();
    while (choices.currentIndex() != wanted) {
        const int before = choices.currentIndex();
        QTest::keyClick(&choices, before < wanted ? Qt::Key_Down : Qt::Key_Up);
        ASSERT_NE(choices.currentIndex(), before) << field;
    }
}

void WindowJourney::clickRow(const char* view, int row)
{
    auto& rows = find<QAbstractItemView>(view);
    const QPoint place = rows.visualRect(rows.model()->index(row, 0)).center();
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, place);
}

void WindowJourney::typeCell(int row, int column, const QString& typed)
{
    auto& table = find<QTableView>("lines", invoices());
    table.setCurrentIndex(table.model()->index(row, column));
    table.edit(table.currentIndex());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the editor before it
    const auto editors = table.findChildren<QLineEdit*>();
    ASSERT_FALSE(editors.empty());
    QLineEdit* editor = editors.back();
    editor->selectAll();
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key_Tab);
    QCoreApplication::processEvents();
}

std::string WindowJourney::comingFile(const std::string& ending)
{
    std::filesystem::path found;
    const auto isThere = [&] {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
            if (entry.path().string().ends_with(ending) && entry.file_size() > 0) {
                found = entry.path();
            }
        }
        return !found.empty();
    };
    EXPECT_TRUE(comesTrue(isThere)) << ending;
    return found.empty() ? std::string() : readFile(found, 10'000'000);
}

} // namespace Quillary
