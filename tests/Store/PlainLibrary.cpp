#include "tests/Store/PlainLibrary.h"

#include <algorithm>

namespace Quillary::Shelf {

namespace {

/// Whether a change did nothing but empty references to records that are gone.
template <class T>
bool onlyLostTargets(const T& before, const T& after)
{
    T expected = before;
    if constexpr (requires { expected.author; }) {
        expected.author = after.author ? before.author : after.author;
        expected.translator = after.translator ? before.translator : after.translator;
    } else if constexpr (requires { expected.parent; }) {
        expected.book = after.book ? before.book : after.book;
        expected.parent = after.parent ? before.parent : after.parent;
    } else if constexpr (requires { expected.bookID; }) {
        expected.bookID = after.bookID ? before.bookID : after.bookID;
        expected.authorID = after.authorID ? before.authorID : after.authorID;
    }
    return expected == after;
}

template <class T>
void takeOverRows(const Rows<T>& before, const Rows<T>& after, Rows<T>& target)
{
    for (const auto& [key, record] : before) {
        if (!after.contains(key)) {
            target.erase(key);
        }
    }
    for (const auto& [key, record] : after) {
        const auto former = before.find(key);
        if (former != before.end() && former->second == record) {
            continue;
        }
        const auto known = target.find(key);
        if (former != before.end() && known != target.end()) {
            applyChange(former->second, record, known->second);
        } else if (former == before.end() || !onlyLostTargets(former->second, record)) {
            target[key] = record;
        }
    }
}

/// False when a row was changed again in the meantime.
template <class T>
bool takeBackRows(const Rows<T>& before, const Rows<T>& after, Rows<T>& now)
{
    for (const auto& [key, record] : before) {
        if (!after.contains(key) && !now.try_emplace(key, record).second) {
            return false;
        }
    }
    for (const auto& [key, record] : after) {
        const auto former = before.find(key);
        if (former != before.end() && former->second == record) {
            continue;
        }
        const auto current = now.find(key);
        if (current == now.end()) {
            return false;
        }
        if (former == before.end()) {
            if (!(current->second == record)) {
                return false;
            }
            now.erase(current);
        } else if (keepsChange(former->second, record, current->second)) {
            applyChange(record, former->second, current->second);
        } else {
            return false;
        }
    }
    return true;
}

template <class T>
bool contains(const Rows<T>& rows, Ref<T> ref)
{
    return !ref || rows.contains(ref.key());
}

template <class T>
bool containsUUID(const Rows<T>& rows, const std::optional<UUID>& uuid)
{
    return std::ranges::any_of(rows, [&](const auto& row) { return row.second.uuid == uuid; });
}

/// Adds a record that is only in `all`, if it isn't there yet.
template <class T>
bool addTarget(Ref<T> ref, const Rows<T>& all, Rows<T>& rows)
{
    const auto found = all.find(ref.key());
    return found != all.end() && rows.try_emplace(ref.key(), found->second).second;
}

} // namespace

void PlainLibrary::eraseAuthor(std::int64_t key)
{
    const auto uuid = of<Author>().at(key).uuid;
    of<Author>().erase(key);
    for (auto& [bookKey, book] : of<Book>()) {
        book.author = book.author.key() == key ? Ref<Author>() : book.author;
        book.translator = book.translator.key() == key ? Ref<Author>() : book.translator;
    }
    for (auto& [reviewKey, review] : of<Review>()) {
        if (review.authorID == uuid) {
            review.authorID.reset();
        }
    }
}

void PlainLibrary::eraseBook(std::int64_t key)
{
    const auto uuid = of<Book>().at(key).uuid;
    of<Book>().erase(key);
    std::vector<std::int64_t> chapters;
    for (const auto& [chapterKey, chapter] : of<Chapter>()) {
        if (chapter.book.key() == key) {
            chapters.push_back(chapterKey);
        }
    }
    for (const std::int64_t chapter : chapters) {
        eraseChapter(chapter);
    }
    std::erase_if(of<Review>(), [&](const auto& row) { return row.second.bookID == uuid; });
}

void PlainLibrary::eraseChapter(std::int64_t key)
{
    if (of<Chapter>().erase(key) == 0) {
        return;
    }
    std::vector<std::int64_t> parts;
    for (const auto& [partKey, part] : of<Chapter>()) {
        if (part.parent.key() == key) {
            parts.push_back(partKey);
        }
    }
    for (const std::int64_t part : parts) {
        eraseChapter(part);
    }
}

bool PlainLibrary::isWhole() const
{
    return std::ranges::all_of(of<Book>(),
                               [this](const auto& row) {
                                   return contains(of<Author>(), row.second.author) &&
                                          contains(of<Author>(), row.second.translator);
                               }) &&
           std::ranges::all_of(of<Chapter>(), [this](const auto& row) {
               return contains(of<Book>(), row.second.book) && contains(of<Chapter>(), row.second.parent);
           });
}

void PlainLibrary::dropLostTargets(const PlainLibrary& before, const PlainLibrary& after)
{
    const auto isGone = [&]<class T>(Ref<T> ref) {
        return ref && !of<T>().contains(ref.key());
    };
    // A tie may lead to a record that isn't saved yet; gone is only what was deleted just now.
    const auto isGoneUUID = [&]<class T>(const Rows<T>& all, const std::optional<UUID>& uuid) {
        return uuid && containsUUID(all, uuid) && !containsUUID(after.of<T>(), uuid);
    };
    for (auto& [key, book] : of<Book>()) {
        const auto now = after.of<Book>().find(key);
        const bool isThere = now != after.of<Book>().end();
        if (isGone(book.author)) {
            book.author = isThere ? now->second.author : Ref<Author>();
        }
        if (isGone(book.translator)) {
            book.translator = isThere ? now->second.translator : Ref<Author>();
        }
    }
    bool hasErased = true;
    while (hasErased) {
        hasErased = false;
        for (const auto& [key, chapter] : Rows<Chapter>(of<Chapter>())) {
            const auto now = after.of<Chapter>().find(key);
            if (!isGone(chapter.book) && !isGone(chapter.parent)) {
                continue;
            }
            if (now == after.of<Chapter>().end()) {
                of<Chapter>().erase(key);
                hasErased = true;
                continue;
            }
            Chapter& stored = of<Chapter>().at(key);
            stored.book = isGone(chapter.book) ? now->second.book : chapter.book;
            stored.parent = isGone(chapter.parent) ? now->second.parent : chapter.parent;
        }
    }
    for (const auto& [key, review] : Rows<Review>(of<Review>())) {
        const auto now = after.of<Review>().find(key);
        const bool isThere = now != after.of<Review>().end();
        Review& stored = of<Review>().at(key);
        if (isGoneUUID(before.of<Author>(), review.authorID)) {
            stored.authorID = isThere ? now->second.authorID : std::nullopt;
        }
        if (isGoneUUID(before.of<Book>(), review.bookID)) {
            if (isThere) {
                stored.bookID = now->second.bookID;
            } else {
                of<Review>().erase(key);
            }
        }
    }
}

void PlainLibrary::takeOver(const PlainLibrary& before, const PlainLibrary& after)
{
    const PlainLibrary untouched = *this;
    takeOverRows(before.of<Author>(), after.of<Author>(), of<Author>());
    takeOverRows(before.of<Book>(), after.of<Book>(), of<Book>());
    takeOverRows(before.of<Chapter>(), after.of<Chapter>(), of<Chapter>());
    takeOverRows(before.of<Review>(), after.of<Review>(), of<Review>());
    dropLostTargets(before, after);
    bool hasAdded = true;
    while (hasAdded) {
        hasAdded = false;
        // Copies, because what is added may refer to more.
        for (const auto& [key, book] : Rows<Book>(of<Book>())) {
            const auto former = untouched.of<Book>().find(key);
            if (former == untouched.of<Book>().end() || !(former->second == book)) {
                hasAdded |= addTarget(book.author, after.of<Author>(), of<Author>());
                hasAdded |= addTarget(book.translator, after.of<Author>(), of<Author>());
            }
        }
        for (const auto& [key, chapter] : Rows<Chapter>(of<Chapter>())) {
            const auto former = untouched.of<Chapter>().find(key);
            if (former == untouched.of<Chapter>().end() || !(former->second == chapter)) {
                hasAdded |= addTarget(chapter.book, after.of<Book>(), of<Book>());
                hasAdded |= addTarget(chapter.parent, after.of<Chapter>(), of<Chapter>());
            }
        }
    }
}

std::optional<PlainLibrary> PlainLibrary::without(const PlainLibrary& before, const PlainLibrary& after) const
{
    PlainLibrary result = *this;
    const bool isUnchanged = takeBackRows(before.of<Author>(), after.of<Author>(), result.of<Author>()) &&
                             takeBackRows(before.of<Book>(), after.of<Book>(), result.of<Book>()) &&
                             takeBackRows(before.of<Chapter>(), after.of<Chapter>(), result.of<Chapter>()) &&
                             takeBackRows(before.of<Review>(), after.of<Review>(), result.of<Review>());
    if (!isUnchanged || !result.isWhole()) {
        return std::nullopt;
    }
    // A review must not lose what it belongs to; before, it may have been tied to nothing.
    for (const auto& [key, review] : result.of<Review>()) {
        const bool losesBook =
            containsUUID(of<Book>(), review.bookID) && !containsUUID(result.of<Book>(), review.bookID);
        const bool losesAuthor =
            containsUUID(of<Author>(), review.authorID) && !containsUUID(result.of<Author>(), review.authorID);
        if (losesBook || losesAuthor) {
            return std::nullopt;
        }
    }
    return result;
}

} // namespace Quillary::Shelf
