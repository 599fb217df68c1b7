#include "QuillaryCore/Documents/SavedViews.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/SavedViewDetails.h"
#include "tests/Documents/DocumentLibrary.h"

#include <gtest/gtest.h>

namespace Quillary {
namespace {

TEST(SavedViewsTest, keepsEveryPartOfAView)
{
    DocumentLibrary library;
    Context& context = library.context;
    const Project& project = context.insert<Project>();
    context.save();
    const DocumentView views[] = {
        {},
        {.text = "website", .status = DisplayStatus::partlyPaid, .period = DocumentView::Period::twelveMonths},
        {.dueWithinDays = 0, .tag = "Travel", .currencyCode = "USD"},
        {.client = library.client.ref.key(), .project = project.ref.key()},
        {.project = 0, .sortColumn = DocumentRows::Column::total, .order = DocumentRows::Order::ascending},
    };
    for (const DocumentView& view : views) {
        const SavedView& saved = SavedViews::keep(context, DocumentKind::quote, "A", view);
        EXPECT_EQ(SavedViews::contents(context, saved), view);
        SavedViews::replace(context, saved, views[1]);
        EXPECT_EQ(SavedViews::contents(context, saved), views[1]);
        SavedViews::remove(context, saved);
    }
    EXPECT_EQ(context.count<SavedViewDetails>(""), 0);

    const SavedView& saved = SavedViews::keep(context, DocumentKind::invoice, "Theirs", views[3]);
    context.erase(library.client);
    context.erase(project);
    EXPECT_EQ(SavedViews::contents(context, saved), DocumentView()); // what is gone is asked for no more
}

TEST(SavedViewsTest, tellsViewsApartByTheirNames)
{
    DocumentLibrary library;
    Context& context = library.context;
    const SavedView& first = SavedViews::keep(context, DocumentKind::invoice, " Größte ", {});
    EXPECT_EQ(first.name, "Größte");
    const SavedView& second = SavedViews::keep(context, DocumentKind::invoice, "Second", {});
    SavedViews::keep(context, DocumentKind::quote, "Größte", {}); // another list
    EXPECT_THROW(SavedViews::keep(context, DocumentKind::invoice, "GRÖSSTE", {}), UserError);
    EXPECT_THROW(SavedViews::rename(context, second, "größte"), UserError);
    EXPECT_THROW(SavedViews::rename(context, second, "  "), UserError);
    SavedViews::rename(context, first, "grösste"); // its own name, written otherwise
    const auto views = SavedViews::of(context, DocumentKind::invoice);
    ASSERT_EQ(views.size(), 2U);
    EXPECT_EQ(views[0]->name, "grösste");
    EXPECT_EQ(views[1]->name, "Second");
}

TEST(SavedViewsTest, movesWithinTheirList)
{
    DocumentLibrary library;
    Context& context = library.context;
    for (const char* name : {"a", "b", "c"}) {
        context.edit(SavedViews::keep(context, DocumentKind::invoice, name, {})).sortIndex = 5; // from another program
    }
    SavedViews::keep(context, DocumentKind::quote, "q", {});
    const auto moved = [&](std::size_t place, SavedViews::Step step) {
        SavedViews::move(context, *SavedViews::of(context, DocumentKind::invoice)[place], step);
        std::string names;
        for (const SavedView* view : SavedViews::of(context, DocumentKind::invoice)) {
            names += view->name;
        }
        return names;
    };
    EXPECT_EQ(moved(0, SavedViews::Step::up), "abc");
    EXPECT_EQ(moved(2, SavedViews::Step::up), "acb");
    EXPECT_EQ(moved(0, SavedViews::Step::down), "cab");
    EXPECT_EQ(moved(2, SavedViews::Step::down), "cab");
}

} // namespace
} // namespace Quillary
