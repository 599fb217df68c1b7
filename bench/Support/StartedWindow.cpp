// Starts as the program does, or as a bare window does, and ends as soon as its table is drawn.

#include "Quillary/AppEnvironment.h"
#include "Quillary/AssistantService.h"
#include "Quillary/Desktop.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryUI/Look/DesktopLook.h"

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTableView>
#include <QTimer>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr QRgb accent = 0xff1f5fbf;
constexpr int notDrawn = 3;

/// Ends the process as soon as a table with rows has been drawn.
class EndWhenDrawn final : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            const auto* table = qobject_cast<QTableView*>(watched->parent());
            if (table != nullptr && table->model() != nullptr && table->model()->rowCount() > 0) {
                QTimer::singleShot(0, this, [] { _exit(EXIT_SUCCESS); });
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

/// What `quillary` does without a command.
[[noreturn]] void startProgram(const fs::path& library)
{
    AppEnvironment environment;
    PrintingHost host(environment);
    host.startApplication(PrintingHost::Windows::shown);
    EndWhenDrawn end;
    QCoreApplication::instance()->installEventFilter(&end);
    DesktopLook look(*static_cast<QApplication*>(QCoreApplication::instance()), QColor(accent));
    Desktop desktop(environment, host, ProgramPlaces());
    AssistantService service({.library = library,
                              .socket = library / "socket",
                              .settings = library / "assistants.json",
                              .log = library / "log",
                              .asker = &desktop.asker(),
                              .windows = &desktop},
                             environment,
                             host,
                             [](int) {});
    service.claim();
    service.start();
    desktop.show("invoices");
    QCoreApplication::exec();
    _exit(notDrawn);
}

/// A window of Qt’s with a table, and nothing behind it.
[[noreturn]] void startBare()
{
    int count = 1;
    std::array<char, 5> name{'b', 'a', 'r', 'e', '\0'};
    char* arguments[] = {name.data(), nullptr};
    QApplication application(count, arguments);
    EndWhenDrawn end;
    application.installEventFilter(&end);
    QStandardItemModel model(30, 7);
    QMainWindow window;
    auto* table = new QTableView(&window);
    table->setModel(&model);
    window.setCentralWidget(table);
    window.resize(1360, 860);
    window.show();
    QApplication::exec();
    _exit(notDrawn);
}

} // namespace

} // namespace Quillary

/// With a folder: the program with its library. Without: the bare window.
int main(int argumentCount, char** arguments)
{
    if (argumentCount > 1) {
        Quillary::startProgram(arguments[1]);
    }
    Quillary::startBare();
}
