// What stands in the menus, and what their keys do.
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Main/KeysDialog.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Main/QuickOpen.h"
#include "QuillaryUI/Main/SectionDeck.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace Quillary {

namespace {

constexpr int mostNumbered = 9;

} // namespace

void MainWindow::buildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("New"), QKeySequence::New, this, [this] { m_deck->current()->makeNew(); });
    file->addAction(tr("Quick Open…"), QKeySequence(QStringLiteral("Ctrl+K")), this, [this] {
        auto* quick = new QuickOpen(m_library, this);
        connect(quick, &QuickOpen::wantedDocument, this, &MainWindow::showDocument);
        connect(quick, &QuickOpen::wantedClient, this, &MainWindow::showClient);
        quick->begin();
    });
    file->addSeparator();
    file->addAction(tr("Lock"), QKeySequence(QStringLiteral("Ctrl+L")), this, &MainWindow::lock);
    file->addAction(tr("Quit"), QKeySequence::Quit, this, &MainWindow::end);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QAction* undoAction = edit->addAction(tr("Undo"), QKeySequence::Undo, this, [this] { undo(false); });
    QAction* redoAction =
        edit->addAction(tr("Redo"), QKeySequence(QStringLiteral("Ctrl+Shift+Z")), this, [this] { undo(true); });
    connect(edit, &QMenu::aboutToShow, this, [this, undoAction, redoAction] {
        const bool isOpen = m_library.isOpen();
        const auto last = isOpen ? m_library.context().undoName() : std::nullopt;
        const auto next = isOpen ? m_library.context().redoName() : std::nullopt;
        undoAction->setText(last ? tr("Undo %1").arg(CoreText::word(*last)) : tr("Undo"));
        redoAction->setText(next ? tr("Redo %1").arg(CoreText::word(*next)) : tr("Redo"));
    });
    edit->addSeparator();
    edit->addAction(tr("Settings"), QKeySequence(QStringLiteral("Ctrl+,")), this, [this] {
        showSection(QStringLiteral("settings"));
    });
    edit->addAction(tr("Find in This List"), QKeySequence::Find, this, [this] { m_deck->current()->find(); });

    QMenu* view = menuBar()->addMenu(tr("&View"));
    for (int place = 0; place < m_deck->count(); ++place) {
        QAction* action = view->addAction(m_deck->title(place), this, [this, place] { m_deck->show(place); });
        if (place < mostNumbered) {
            action->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(place + 1)));
        }
    }
    buildDocumentMenu(*menuBar()->addMenu(tr("&Document")));
    menuBar()
        ->addMenu(tr("&Help"))
        ->addAction(tr("What the Keys Do"), QKeySequence(Qt::Key_F1), this, &MainWindow::showKeys);
}

/// Those of the menus, and of what is in front.
void MainWindow::showKeys()
{
    QList<QAction*> known;
    if (const Section* front = m_deck->current()) {
        known = front->documentActions();
    }
    for (const QAction* menu : menuBar()->actions()) {
        for (QAction* action : menu->menu()->actions()) {
            if (!known.contains(action)) {
                known.push_back(action);
            }
        }
    }
    (new KeysDialog(known, this))->show();
}

/// The actions belong to the pane of each section; the menu shows those of the one in front.
void MainWindow::buildDocumentMenu(QMenu& menu)
{
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
        menu.clear();
        if (const Section* front = m_deck->current()) {
            menu.addActions(front->documentActions());
        }
        if (menu.isEmpty()) {
            menu.addAction(tr("No document is chosen"))->setEnabled(false);
        }
    });
}

void MainWindow::undo(bool isRedo)
{
    flush();
    const auto refusal = m_library.attempt([&] {
        Context& context = m_library.context();
        if (isRedo && context.redoName()) {
            context.redo();
        } else if (!isRedo && context.undoName()) {
            context.undo();
        }
    });
    if (refusal) {
        warn(*refusal);
    }
}

} // namespace Quillary
