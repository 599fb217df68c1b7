#pragma once

#include "tests/Store/Shelf.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

// A library as plain maps: the slow and obvious way to say what the context has to do.

namespace Quillary::Shelf {

template <class T>
using Rows = std::map<std::int64_t, T>;

/// Calls `visit` with every member that is stored, relationships included.
template <class T, class Visitor>
void forEachMember(const Visitor& visit)
{
    std::apply([&](const auto&... fields) { (visit(fields.member), ...); }, T::fields());
    std::apply([&](const auto&... references) { (visit(references.member), ...); }, T::references());
}

/// The fields that differ between two states, taken over into a third.
template <class T>
void applyChange(const T& before, const T& after, T& target)
{
    forEachMember<T>([&](auto member) {
        if (!(before.*member == after.*member)) {
            target.*member = after.*member;
        }
    });
}

/// Whether a record still has the values that a change gave it.
template <class T>
bool keepsChange(const T& before, const T& after, const T& now)
{
    bool keeps = true;
    forEachMember<T>(
        [&](auto member) { keeps = keeps && (before.*member == after.*member || now.*member == after.*member); });
    return keeps;
}

struct PlainLibrary
{
    std::tuple<Rows<Author>, Rows<Book>, Rows<Chapter>, Rows<Review>> rows;

    template <class T>
    [[nodiscard]] Rows<T>& of()
    {
        return std::get<Rows<T>>(rows);
    }
    template <class T>
    [[nodiscard]] const Rows<T>& of() const
    {
        return std::get<Rows<T>>(rows);
    }

    void eraseAuthor(std::int64_t key);
    void eraseBook(std::int64_t key);
    void eraseChapter(std::int64_t key);

    /// False when a record refers to one that isn't there.
    [[nodiscard]] bool isWhole() const;

    /// Takes over what changed from `before` to `after`, and the records of `after` that it can't be without.
    void takeOver(const PlainLibrary& before, const PlainLibrary& after);

    /// This library with the change from `before` to `after` taken back. No value: something stands in the way.
    [[nodiscard]] std::optional<PlainLibrary> without(const PlainLibrary& before, const PlainLibrary& after) const;

    /// After rows were taken away: what refers to them, because its own change is pending, is as it is in `after`; what
    /// isn't there any more follows the delete rules.
    void dropLostTargets(const PlainLibrary& before, const PlainLibrary& after);

    friend bool operator==(const PlainLibrary&, const PlainLibrary&) = default;
};

} // namespace Quillary::Shelf
