#include "QuillaryUI/Main/KeysDialog.h"

#include "QuillaryUI/Look/Lists.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include <utility>

namespace Quillary {

namespace {

constexpr int usualWidth = 520;
constexpr int usualHeight = 560;
constexpr int border = 16;

} // namespace

KeysDialog::KeysDialog(const QList<QAction*>& actions, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("keysDialog"));
    setWindowTitle(tr("What the Keys Do"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(usualWidth, usualHeight);
    auto* model = new QStandardItemModel(0, 2, this);
    model->setHorizontalHeaderLabels({tr("Key"), tr("What it does")});
    const auto add = [model](const QKeySequence& keys, const QString& words) {
        auto* key = new QStandardItem(keys.toString(QKeySequence::NativeText));
        auto* meaning = new QStandardItem(words);
        key->setEditable(false);
        meaning->setEditable(false);
        model->appendRow({key, meaning});
    };
    for (const QAction* action : actions) {
        if (!action->shortcut().isEmpty() && action->isVisible()) {
            add(action->shortcut(), QString(action->text()).remove(QLatin1Char('&')));
        }
    }
    for (const auto& [keys, words] : {std::pair("Ctrl+Return", tr("The usual next step of a document")),
                                      std::pair("Return", tr("Into what is chosen in a list; in a sheet, its answer")),
                                      std::pair("Esc", tr("Back to the list; out of a sheet")),
                                      std::pair("Del", tr("Delete what is chosen: drafts, lines, working time")),
                                      std::pair("Alt+Up", tr("Move the line up")),
                                      std::pair("Alt+Down", tr("Move the line down")),
                                      std::pair("Alt+Right", tr("Put the line under the one above it")),
                                      std::pair("Alt+Left", tr("Take the line out again"))}) {
        add(QKeySequence(QString::fromLatin1(keys)), words);
    }
    auto* table = new QTableView(this);
    table->setModel(model);
    Lists::dress(*table, QStringLiteral("keys"), windowTitle(), 1);
    table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setIcon({}); // the desktop's, which no button here bears
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(border, border, border, border);
    column->addWidget(table, 1);
    column->addWidget(buttons);
}

} // namespace Quillary
