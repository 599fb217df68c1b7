#include "QuillaryUI/Documents/SavedViewsButton.h"

#include "QuillaryCore/Documents/SavedViews.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/Sheet.h"

#include <QAction>
#include <QFontMetrics>
#include <QFormLayout>
#include <QLineEdit>
#include <QMenu>

#include <utility>

namespace Quillary {

namespace {

constexpr int widestName = 96;

} // namespace

SavedViewsButton::SavedViewsButton(LibraryAccess& library, DocumentKind kind, Shown shown, QWidget* host)
    : QPushButton(tr("Views"), host)
    , m_library(library)
    , m_kind(kind)
    , m_shown(std::move(shown))
    , m_host(host)
    , m_menu(new QMenu(this))
{
    setObjectName(QStringLiteral("savedViews"));
    setAccessibleName(tr("Saved views"));
    setMenu(m_menu);
    connect(m_menu, &QMenu::aboutToShow, this, &SavedViewsButton::fill);
    connect(&library, &LibraryAccess::opened, this, &SavedViewsButton::refresh);
    connect(&library, &LibraryAccess::changed, this, &SavedViewsButton::refresh);
}

void SavedViewsButton::refresh()
{
    const SavedView* chosen = m_library.isOpen() ? m_library.context().find(Ref<SavedView>(m_chosen)) : nullptr;
    const bool isShown = chosen != nullptr && SavedViews::contents(m_library.context(), *chosen) == m_shown();
    const QString name = chosen == nullptr ? QString() : Quillary::text(chosen->name);
    setText(isShown ? QFontMetrics(font()).elidedText(name, Qt::ElideRight, widestName) : tr("Views"));
    setToolTip(isShown ? name : QString());
}

void SavedViewsButton::fill()
{
    m_menu->clear();
    if (!m_library.isOpen()) {
        return;
    }
    Context& context = m_library.context();
    const DocumentView shown = m_shown();
    std::optional<std::pair<std::int64_t, QString>> chosen;
    bool isKept = false;
    for (const SavedView* saved : SavedViews::of(context, m_kind)) {
        const std::int64_t key = saved->ref.key();
        const QString name = Quillary::text(saved->name);
        QAction* action = m_menu->addAction(QString(name).replace(QLatin1Char('&'), QStringLiteral("&&")));
        connect(action, &QAction::triggered, this, [this, key] { choose(key); });
        action->setCheckable(true);
        action->setChecked(SavedViews::contents(context, *saved) == shown);
        isKept = isKept || action->isChecked();
        if (action->isChecked() || (key == m_chosen && !chosen)) {
            chosen.emplace(key, name);
        }
    }
    if (m_menu->isEmpty()) {
        m_menu->addAction(tr("No view is kept yet"))->setEnabled(false);
    }
    m_menu->addSeparator();
    QAction* keep = m_menu->addAction(tr("Keep This View…"));
    keep->setObjectName(QStringLiteral("keepView"));
    keep->setEnabled(!isKept && shown != DocumentView());
    connect(keep, &QAction::triggered, this, [this] {
        askForName(tr("Keep View"), {}, [this](const std::string& name) {
            m_chosen = SavedViews::keep(m_library.context(), m_kind, name, m_shown()).ref.key();
        });
    });
    if (chosen) {
        addChanges(chosen->first, chosen->second);
    }
}

/// What can be done to the view that is shown, or was chosen last and altered since.
void SavedViewsButton::addChanges(std::int64_t key, const QString& name)
{
    QAction* replace = m_menu->addAction(tr("Save Changes to “%1”").arg(name));
    replace->setObjectName(QStringLiteral("replaceView"));
    const SavedView* saved = m_library.context().find(Ref<SavedView>(key));
    replace->setVisible(SavedViews::contents(m_library.context(), *saved) != m_shown());
    connect(replace, &QAction::triggered, this, [this, key] {
        perform(
            tr("Change View"),
            [this](const SavedView& view) { SavedViews::replace(m_library.context(), view, m_shown()); },
            key);
    });
    QAction* rename = m_menu->addAction(tr("Rename “%1”…").arg(name));
    rename->setObjectName(QStringLiteral("renameView"));
    connect(rename, &QAction::triggered, this, [this, key, name] {
        askForName(tr("Rename View"), name, [this, key](const std::string& typed) {
            if (const SavedView* view = m_library.context().find(Ref<SavedView>(key))) {
                SavedViews::rename(m_library.context(), *view, typed);
            }
        });
    });
    addMoves(key, name);
    QAction* remove = m_menu->addAction(tr("Delete “%1”").arg(name));
    remove->setObjectName(QStringLiteral("deleteView"));
    connect(remove, &QAction::triggered, this, [this, key] {
        perform(
            tr("Delete View"), [this](const SavedView& view) { SavedViews::remove(m_library.context(), view); }, key);
    });
}

void SavedViewsButton::addMoves(std::int64_t key, const QString& name)
{
    const auto views = SavedViews::of(m_library.context(), m_kind);
    const auto add = [&](const QString& label, const QString& objectName, SavedViews::Step step, const SavedView* end) {
        QAction* move = m_menu->addAction(label);
        move->setObjectName(objectName);
        move->setVisible(views.size() > 1);
        move->setEnabled(end->ref.key() != key);
        connect(move, &QAction::triggered, this, [this, key, step] {
            perform(
                tr("Move View"),
                [this, step](const SavedView& view) { SavedViews::move(m_library.context(), view, step); },
                key);
        });
    };
    add(tr("Move “%1” Up").arg(name), QStringLiteral("moveViewUp"), SavedViews::Step::up, views.front());
    add(tr("Move “%1” Down").arg(name), QStringLiteral("moveViewDown"), SavedViews::Step::down, views.back());
}

void SavedViewsButton::choose(std::int64_t key)
{
    const SavedView* saved = m_library.isOpen() ? m_library.context().find(Ref<SavedView>(key)) : nullptr;
    if (saved != nullptr) {
        m_chosen = key;
        Q_EMIT wanted(SavedViews::contents(m_library.context(), *saved));
    }
}

void SavedViewsButton::perform(const QString& name, const std::function<void(const SavedView&)>& work, std::int64_t key)
{
    const auto refusal = m_library.perform(name, [&] {
        if (const SavedView* saved = m_library.context().find(Ref<SavedView>(key))) {
            work(*saved);
        }
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
}

void SavedViewsButton::askForName(const QString& title,
                                  const QString& name,
                                  const std::function<void(const std::string&)>& work)
{
    auto* sheet = new Sheet(title, tr("Keep"), m_host);
    auto* field = new QLineEdit(name, sheet);
    field->setObjectName(QStringLiteral("viewName"));
    field->setAccessibleName(tr("Name"));
    sheet->form().addRow(tr("Name"), field);
    sheet->onAnswer(
        [this, title, field, work] { return m_library.perform(title, [&] { work(utf8(field->text())); }); });
    sheet->open(field);
    field->selectAll();
}

} // namespace Quillary
