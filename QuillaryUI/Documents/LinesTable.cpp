#include "QuillaryUI/Documents/LinesTable.h"

#include "QuillaryCore/Model/CatalogItem.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/TaxRate.h"
#include "QuillaryCore/Model/TaxRates.h"
#include "QuillaryCore/Model/Units.h"
#include "QuillaryCore/Money/Percent.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/LinesModel.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QApplication>
#include <QClipboard>
#include <QCompleter>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStringList>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

constexpr int lineHeight = 32;

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

QStringList rateTexts(Context& context)
{
    QStringList texts;
    for (const TaxRate* rate : TaxRates::all(context)) {
        texts.push_back(text(Percent::format(rate->basisPoints)));
    }
    return texts;
}

/// Line edits that complete what the catalog, the units and the tax rates have.
class LineDelegate final : public QStyledItemDelegate
{
public:
    LineDelegate(LibraryAccess& library, QObject* parent)
        : QStyledItemDelegate(parent)
        , m_library(library)
    {
    }

    QWidget*
    createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override
    {
        auto* editor = new QLineEdit(parent);
        editor->setFrame(false);
        editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
        const QStringList words = m_library.isOpen() ? wordsFor(index.column()) : QStringList();
        if (!words.isEmpty()) {
            auto* completer = new QCompleter(words, editor);
            completer->setCaseSensitivity(Qt::CaseInsensitive);
            completer->setFilterMode(Qt::MatchContains);
            editor->setCompleter(completer);
        }
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

    /// The name of a catalog item in the empty row brings the item; elsewhere it is a text like any other.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        auto& lines = static_cast<LinesModel&>(*model);
        const QString typed = static_cast<QLineEdit*>(editor)->text();
        const bool isItem = index.column() == LinesModel::title && index.row() == lines.lineCount() &&
                            m_library.isOpen() && m_library.context().count<CatalogItem>("name = ?", utf8(typed)) == 1;
        if (isItem) {
            lines.takeItem(index.row(), typed);
        } else {
            lines.setData(index, typed);
        }
    }

private:
    [[nodiscard]] QStringList wordsFor(int column) const
    {
        switch (column) {
        case LinesModel::title:
            return catalogNames(m_library.context());
        case LinesModel::unit:
            return unitNames(m_library);
        case LinesModel::tax:
            return rateTexts(m_library.context());
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
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setSectionResizeMode(LinesModel::title, QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    constexpr std::pair<int, int> widths[] = {{LinesModel::details, 110},
                                              {LinesModel::quantity, 74},
                                              {LinesModel::unit, 80},
                                              {LinesModel::price, 96},
                                              {LinesModel::tax, 58},
                                              {LinesModel::amount, 104}};
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
    if (hint == QAbstractItemDelegate::SubmitModelCache && at.isValid()) {
        const int next = std::min(at.row() + 1, m_lines.lineCount());
        setCurrentIndex(m_lines.index(next, next == m_lines.lineCount() ? int(LinesModel::title) : at.column()));
    }
}

void LinesTable::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste) && m_lines.paste(QApplication::clipboard()->text())) {
        return;
    }
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        removeChosen();
    } else if (event->modifiers() == Qt::AltModifier && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
        moveChosen(event->key() == Qt::Key_Up ? -1 : 1);
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid()) {
        edit(currentIndex());
    } else {
        QTableView::keyPressEvent(event);
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
    const int goal = at.row() + by;
    if (at.isValid() && at.row() < m_lines.lineCount() && goal >= 0 && goal < m_lines.lineCount()) {
        m_lines.moveLine(at.row(), by > 0 ? goal + 1 : goal);
        setCurrentIndex(m_lines.index(goal, at.column()));
    }
}

} // namespace Quillary
