#include "QuillaryUI/Documents/LinesTable.h"

#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Lists.h"
#include "QuillaryUI/Look/RowDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPersistentModelIndex>
#include <QStringList>
#include <QTimer>

#include <algorithm>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr int lineHeight = 32;
constexpr int numberWidth = 28;
constexpr char beganEmpty[] = "beganEmpty"; ///< whether an editor was opened in the row that is no line yet

QStringList catalogNames(Context& context)
{
    QStringList names;
    for (const CatalogItem* item : context.fetch<CatalogItem>("name <> '' ORDER BY name")) {
        names.push_back(text(item->name));
    }
    return names;
}

QStringList unitNames(const LibraryAccess& library)
{
    QStringList names;
    const UnitLibrary units(library.context(), library.business());
    const DocumentLanguage language = documentLanguage(library.formats().locale().languageCode());
    for (const std::string& code : units.offered()) {
        if (const auto words = units.words(code, language)) {
            names.push_back(text(words->singular));
        }
    }
    return names;
}

QStringList rateTexts(const LibraryAccess& library)
{
    QStringList texts;
    for (const TaxRate* rate : TaxRates::all(library.context())) {
        texts.push_back(library.formats().percent(rate->basisPoints));
    }
    return texts;
}

/// Line edits that complete what the catalog, the units and the tax rates have.
class LineDelegate final : public RowDelegate
{
public:
    LineDelegate(LibraryAccess& library, QObject* parent)
        : RowDelegate(parent)
        , m_library(library)
    {
    }

    QWidget*
    createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override
    {
        auto* editor = new QLineEdit(parent);
        editor->setFrame(false);
        editor->setTextMargins(padding - 2, 0, padding - 2, 0); // what is typed stands where it will
        editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
        const QStringList words = m_library.isOpen() ? wordsFor(index.column()) : QStringList();
        if (!words.isEmpty()) {
            auto* completer = new QCompleter(words, editor);
            completer->setCaseSensitivity(Qt::CaseInsensitive);
            completer->setFilterMode(Qt::MatchContains);
            editor->setCompleter(completer);
            endByEnter(*editor, *completer);
        }
        watch(*editor, index);
        return editor;
    }

    /// A change of the library refreshes open editors, too: one in which something was typed keeps it, and in the others
    /// the next key replaces what stands there.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        auto& field = *static_cast<QLineEdit*>(editor);
        if (!field.isModified()) {
            field.setText(index.data(Qt::EditRole).toString());
            field.selectAll();
        }
    }

    /// The name of a catalog item in a new row brings the item; elsewhere it is a text like any other.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        auto& lines = static_cast<LinesModel&>(*model);
        const QString typed = static_cast<QLineEdit*>(editor)->text();
        const bool isNew = editor->property(beganEmpty).toBool() && index.row() + 1 >= lines.lineCount();
        const bool isItem = index.column() == LinesModel::description && isNew && m_library.isOpen() &&
                            m_library.context().count<CatalogItem>("name = ?", utf8(typed)) == 1;
        if (isItem) {
            lines.takeItem(index.row(), typed);
        } else {
            lines.setData(index, typed);
        }
    }

private:
    /// What is typed shows on the page before the cell is left.
    static void watch(QLineEdit& editor, const QModelIndex& index)
    {
        // The model is the one that this delegate was made for.
        auto* lines = const_cast<LinesModel*>(static_cast<const LinesModel*>(index.model()));
        editor.setProperty(beganEmpty, index.row() == lines->lineCount());
        connect(
            &editor, &QLineEdit::textEdited, lines, [lines, at = QPersistentModelIndex(index)](const QString& text) {
                lines->setTyping(at.row(), at.column(), text);
            });
    }

    /// While suggestions are shown, Enter goes to them past the table: it ends the cell all the same, after what was
    /// chosen among them has come into it.
    void endByEnter(QLineEdit& editor, QCompleter& completer) const
    {
        auto* self = const_cast<LineDelegate*>(this); // a view hands out editors by a const call
        connect(&editor, &QLineEdit::returnPressed, &completer, [self, &editor, &completer] {
            if (completer.popup()->isVisible()) {
                QTimer::singleShot(0, &editor, [self, &editor] {
                    Q_EMIT self->commitData(&editor);
                    Q_EMIT self->closeEditor(&editor, SubmitModelCache);
                });
            }
        });
    }

    [[nodiscard]] QStringList wordsFor(int column) const
    {
        switch (column) {
        case LinesModel::description:
            return catalogNames(m_library.context());
        case LinesModel::unit:
            return unitNames(m_library);
        case LinesModel::tax:
            return rateTexts(m_library);
        default:
            return {};
        }
    }

    LibraryAccess& m_library;
};

} // namespace

LinesTable::LinesTable(LibraryAccess& library, LinesModel& model, QWidget* parent)
    : QTableView(parent)
    , m_lines(model)
{
    setObjectName(QStringLiteral("lines"));
    setAccessibleName(tr("Lines"));
    setModel(&model);
    setItemDelegate(new LineDelegate(library, this));
    setEditTriggers(AnyKeyPressed | DoubleClicked | SelectedClicked | EditKeyPressed);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionBehavior(SelectItems);
    setTabKeyNavigation(true);
    setWordWrap(false);
    setAlternatingRowColors(true);
    verticalHeader()->setFixedWidth(numberWidth);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    verticalHeader()->setSectionsMovable(true);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setAccessibleName(tr("Line numbers"));
    connect(verticalHeader(), &QHeaderView::sectionMoved, this, [this](int line, int from, int to) {
        if (line == from) { // else it is being put back
            QTimer::singleShot(0, this, [this, from, to] { dropLine(from, to); });
        }
    });
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setSectionResizeMode(LinesModel::description, QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    constexpr std::pair<int, int> widths[] = {{LinesModel::details, 84},
                                              {LinesModel::quantity, 68},
                                              {LinesModel::unit, 80},
                                              {LinesModel::price, 86},
                                              {LinesModel::tax, 52},
                                              {LinesModel::sum, 92}};
    for (const auto& [column, width] : widths) {
        setColumnWidth(column, width);
    }
    connect(&model, &QAbstractItemModel::rowsInserted, this, &LinesTable::fitHeight);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &LinesTable::fitHeight);
    fitHeight();
}

void LinesTable::fitHeight()
{
    constexpr int border = 4;
    setFixedHeight(horizontalHeader()->sizeHint().height() + (m_lines.rowCount() * lineHeight) + border);
}

void LinesTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const QModelIndex at = currentIndex();
    QTableView::closeEditor(editor, hint);
    if (hint == QAbstractItemDelegate::RevertModelCache) {
        m_lines.dropTyping();
    }
    if (hint == QAbstractItemDelegate::SubmitModelCache && at.isValid()) {
        const int next = std::min(at.row() + 1, m_lines.lineCount());
        setCurrentIndex(m_lines.index(next, next == m_lines.lineCount() ? int(LinesModel::description) : at.column()));
    }
}

bool LinesTable::focusNextPrevChild(bool next)
{
    if (!Lists::isLeftByTab(*this, next)) {
        return QTableView::focusNextPrevChild(next);
    }
    // The table's own way, from cell to cell, is what is to be left.
    return QAbstractScrollArea::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

void LinesTable::keyPressEvent(QKeyEvent* event)
{
    const bool isAlt = event->modifiers() == Qt::AltModifier;
    if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        removeChosen();
    } else if (isAlt && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
        moveChosen(event->key() == Qt::Key_Up ? -1 : 1);
    } else if (isAlt && (event->key() == Qt::Key_Right || event->key() == Qt::Key_Left)) {
        nestChosen(event->key() == Qt::Key_Right);
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid()) {
        edit(currentIndex());
    } else {
        QTableView::keyPressEvent(event);
    }
}

/// Rows become lines; what is no more than a cell goes into the cell.
void LinesTable::paste()
{
    const QString text = QApplication::clipboard()->text();
    if (!m_lines.paste(text) && currentIndex().isValid() && !text.trimmed().isEmpty()) {
        m_lines.setData(currentIndex(), text.trimmed());
    }
}

void LinesTable::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex at = indexAt(event->pos());
    if (!at.isValid() || at.row() >= m_lines.lineCount()) {
        return;
    }
    setCurrentIndex(at);
    QMenu menu;
    menu.addAction(tr("Move Up") + QStringLiteral("\tAlt+↑"), this, [this] { moveChosen(-1); });
    menu.addAction(tr("Move Down") + QStringLiteral("\tAlt+↓"), this, [this] { moveChosen(1); });
    const bool isDeeper = !m_lines.isSubLine(at.row());
    menu.addAction(isDeeper ? tr("Make It a Sub-Line") + QStringLiteral("\tAlt+→")
                            : tr("Take It Out of Its Line") + QStringLiteral("\tAlt+←"),
                   this,
                   [this, isDeeper] { nestChosen(isDeeper); });
    menu.addSeparator();
    menu.addAction(tr("Remove") + QStringLiteral("\tDel"), this, &LinesTable::removeChosen);
    menu.exec(event->globalPos());
}

/// The header has moved its section; the line moves in the document, and the sections lie in the model's order again.
void LinesTable::dropLine(int from, int to)
{
    verticalHeader()->moveSection(to, from);
    if (from < m_lines.lineCount()) {
        m_lines.moveLine(from, std::min(to > from ? to + 1 : to, m_lines.lineCount()));
    }
}

void LinesTable::removeChosen()
{
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        if (std::ranges::find(rows, index.row()) == rows.end()) {
            rows.push_back(index.row());
        }
    }
    m_lines.removeLines(std::move(rows));
}

void LinesTable::moveChosen(int by)
{
    const QModelIndex at = currentIndex();
    if (at.isValid()) {
        setCurrentIndex(m_lines.index(m_lines.shiftLine(at.row(), by), at.column()));
    }
}

void LinesTable::nestChosen(bool isDeeper)
{
    const int row = currentIndex().row();
    if (row >= 0 && row < m_lines.lineCount() && m_lines.isSubLine(row) != isDeeper) {
        isDeeper ? m_lines.nest(row) : m_lines.unnest(row);
    }
}

} // namespace Quillary
