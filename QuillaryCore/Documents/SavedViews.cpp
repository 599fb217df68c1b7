#include "QuillaryCore/Documents/SavedViews.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/SavedViewDetails.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace Quillary::SavedViews {

namespace {

using Column = DocumentRows::Column;
using Period = DocumentView::Period;

/// The words that libraries hold: none of them may ever change.
constexpr std::pair<Period, std::string_view> periodWords[] = {{Period::anyTime, ""},
                                                               {Period::thisMonth, "thisMonth"},
                                                               {Period::threeMonths, "threeMonths"},
                                                               {Period::twelveMonths, "twelveMonths"}};
constexpr std::pair<Column, std::string_view> columnWords[] = {{Column::issueDate, ""},
                                                               {Column::number, "number"},
                                                               {Column::title, "title"},
                                                               {Column::client, "client"},
                                                               {Column::dueDate, "dueDate"},
                                                               {Column::total, "total"},
                                                               {Column::due, "due"},
                                                               {Column::status, "status"}};

template <class Value, std::size_t count>
std::string_view word(const std::pair<Value, std::string_view> (&words)[count], Value value)
{
    return std::ranges::find(words, value, &std::pair<Value, std::string_view>::first)->second;
}

/// The first where the word says nothing.
template <class Value, std::size_t count>
Value value(const std::pair<Value, std::string_view> (&words)[count], std::string_view word)
{
    const auto* found = std::ranges::find(words, word, &std::pair<Value, std::string_view>::second);
    return found == std::end(words) ? words[0].first : found->first;
}

const SavedViewDetails* detailsOf(Context& context, const SavedView& saved)
{
    return saved.uuid ? context.first<SavedViewDetails>("viewID = ?", *saved.uuid) : nullptr;
}

template <class Record>
std::optional<UUID> uuidOf(Context& context, std::optional<DocumentRows::Key> key)
{
    const Record* record = key ? context.find(Ref<Record>(*key)) : nullptr;
    return record == nullptr ? std::nullopt : record->uuid;
}

template <class Record>
std::optional<DocumentRows::Key> keyOf(Context& context, const std::optional<UUID>& uuid)
{
    const Record* record = uuid ? context.find<Record>(*uuid) : nullptr;
    return record == nullptr ? std::nullopt : std::optional(record->ref.key());
}

std::string checkedName(Context& context, DocumentKind kind, std::string_view typed, const SavedView* own)
{
    std::string name(trimmed(typed));
    if (name.empty()) {
        throw UserError("Give the view a name.");
    }
    for (const SavedView* other : of(context, kind)) {
        if (other != own && folded(other->name) == folded(name)) {
            throw UserError(fmt::format("There is a view called “{}” already.", other->name));
        }
    }
    return name;
}

void fill(Context& context, SavedView& saved, const DocumentView& view)
{
    saved.status = view.status ? rawText(*view.status) : "";
    saved.period = word(periodWords, view.period);
    saved.tag = view.tag;
    saved.projectID = uuidOf<Project>(context, view.project);
}

void fill(Context& context, SavedViewDetails& details, const DocumentView& view)
{
    details.clientID = uuidOf<Client>(context, view.client);
    details.currencyCode = view.currencyCode;
    details.searchText = view.text;
    details.sortColumn = word(columnWords, view.sortColumn);
    details.isAscending = view.order == DocumentRows::Order::ascending;
    details.isWithoutProject = view.project == 0;
    details.isDueSoon = view.dueWithinDays.has_value();
    details.dueWithinDays = static_cast<std::int16_t>(view.dueWithinDays.value_or(0));
}

} // namespace

std::vector<const SavedView*> of(Context& context, DocumentKind kind)
{
    return context.fetch<SavedView>("listKindRaw = ? ORDER BY sortIndex, id", static_cast<std::int16_t>(kind));
}

DocumentView contents(Context& context, const SavedView& saved)
{
    DocumentView view{.status = displayStatusFromRaw(saved.status), .tag = saved.tag};
    view.period = value(periodWords, saved.period);
    view.project = keyOf<Project>(context, saved.projectID);
    if (const SavedViewDetails* details = detailsOf(context, saved)) {
        view.text = details->searchText;
        view.currencyCode = details->currencyCode;
        view.client = keyOf<Client>(context, details->clientID);
        view.sortColumn = value(columnWords, details->sortColumn);
        view.order = details->isAscending ? DocumentRows::Order::ascending : DocumentRows::Order::descending;
        if (details->isWithoutProject) {
            view.project = 0;
        }
        if (details->isDueSoon) {
            view.dueWithinDays = details->dueWithinDays;
        }
    }
    return view;
}

const SavedView& keep(Context& context, DocumentKind kind, std::string_view name, const DocumentView& view)
{
    std::string checked = checkedName(context, kind, name, nullptr);
    const std::vector<const SavedView*> others = of(context, kind);
    const std::int32_t place = others.empty() ? 0 : others.back()->sortIndex + 1;
    SavedView& saved = context.insert<SavedView>();
    saved.name = std::move(checked);
    saved.listKindRaw = static_cast<std::int16_t>(kind);
    saved.sortIndex = place;
    fill(context, saved, view);
    SavedViewDetails& details = context.insert<SavedViewDetails>();
    details.viewID = saved.uuid;
    fill(context, details, view);
    return saved;
}

void replace(Context& context, const SavedView& saved, const DocumentView& view)
{
    fill(context, context.edit(saved), view);
    const SavedViewDetails* details = detailsOf(context, saved);
    SavedViewDetails& edited = details != nullptr ? context.edit(*details) : context.insert<SavedViewDetails>();
    edited.viewID = saved.uuid;
    fill(context, edited, view);
}

void rename(Context& context, const SavedView& saved, std::string_view name)
{
    const auto kind = documentKindFromRaw(saved.listKindRaw).value_or(DocumentKind::invoice);
    std::string checked = checkedName(context, kind, name, &saved);
    context.edit(saved).name = std::move(checked);
}

void move(Context& context, const SavedView& saved, Step step)
{
    std::vector<const SavedView*> views =
        of(context, documentKindFromRaw(saved.listKindRaw).value_or(DocumentKind::invoice));
    const auto here = std::ranges::find(views, &saved);
    if (here == views.end() || (step == Step::up ? here == views.begin() : here + 1 == views.end())) {
        return;
    }
    std::iter_swap(here, step == Step::up ? here - 1 : here + 1);
    for (std::size_t place = 0; place < views.size(); ++place) { // all of them: two may have the same index
        const auto index = static_cast<std::int32_t>(place);
        if (views[place]->sortIndex != index) {
            context.edit(*views[place]).sortIndex = index;
        }
    }
}

void remove(Context& context, const SavedView& saved)
{
    context.erase(saved); // its details go with it
}

} // namespace Quillary::SavedViews
