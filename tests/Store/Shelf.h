#pragma once

#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Field.h"
#include "QuillaryCore/Store/Records.h"
#include "QuillaryCore/Store/Store.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

// A small library of books: records with every stored type and every delete rule, for tests of the store alone.

namespace Quillary::Shelf {

struct Author : Record<Author>
{
    std::optional<UUID> uuid;
    std::optional<Instant> createdAt;
    std::string name;
    bool isAlive = true;

    static constexpr std::string_view entityName = "Author";
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Author::uuid},
                          Field{"createdAt", &Author::createdAt},
                          Field{"name", &Author::name},
                          Field{"isAlive", &Author::isAlive}};
    }
    static constexpr auto references() { return std::tuple{}; }
    static constexpr auto indexes() { return std::array{Index{"Author_name", "name"}}; }

    friend bool operator==(const Author&, const Author&) = default;
};

struct Book : Record<Book>
{
    std::optional<UUID> uuid;
    std::optional<Instant> issueDate;
    std::string title = "It's untitled";
    std::int16_t shelf = -1;
    std::int32_t pages = 0;
    std::int64_t priceMinorUnits = 0;
    Bytes cover;
    Ref<Author> author;
    Ref<Author> translator;

    static constexpr std::string_view entityName = "Book";
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Book::uuid},
                          Field{"issueDate", &Book::issueDate},
                          Field{"title", &Book::title},
                          Field{"shelf", &Book::shelf},
                          Field{"pages", &Book::pages},
                          Field{"priceMinorUnits", &Book::priceMinorUnits},
                          Field{"cover", &Book::cover}};
    }
    static constexpr auto references()
    {
        return std::tuple{Reference{"author", &Book::author, WhenTargetGoes::clear},
                          Reference{"translator", &Book::translator, WhenTargetGoes::clear}};
    }
    static constexpr auto indexes()
    {
        return std::array{Index{"Book_author", "author"}, Index{"Book_shelf", "shelf, title", "shelf >= 0"}};
    }

    friend bool operator==(const Book&, const Book&) = default;
};

/// Belongs to a book and lies beside its other chapters; may have sub-chapters.
struct Chapter : Record<Chapter>
{
    std::optional<UUID> uuid;
    std::string title;
    Ref<Book> book;
    Ref<Chapter> parent;

    static constexpr std::string_view entityName = "Chapter";
    static constexpr std::string_view clusteredBy = "book";
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Chapter::uuid}, Field{"title", &Chapter::title}};
    }
    static constexpr auto references()
    {
        return std::tuple{Reference{"book", &Chapter::book, WhenTargetGoes::erase},
                          Reference{"parent", &Chapter::parent, WhenTargetGoes::erase}};
    }

    friend bool operator==(const Chapter&, const Chapter&) = default;
};

/// Tied to a book by its identifier.
struct Review : Record<Review>
{
    std::optional<UUID> uuid;
    std::optional<UUID> bookID;
    std::optional<UUID> authorID;
    std::string text;

    static constexpr std::string_view entityName = "Review";
    static constexpr auto fields()
    {
        return std::tuple{Field{"uuid", &Review::uuid},
                          Field{"bookID", &Review::bookID},
                          Field{"authorID", &Review::authorID},
                          Field{"text", &Review::text}};
    }
    static constexpr auto references() { return std::tuple{}; }
    static constexpr auto uuidReferences()
    {
        return std::tuple{UUIDReference{"bookID", &Review::bookID, "Book", WhenTargetGoes::erase},
                          UUIDReference{"authorID", &Review::authorID, "Author", WhenTargetGoes::clear}};
    }

    friend bool operator==(const Review&, const Review&) = default;
};

inline const Records& records()
{
    static const Records shelf = Records::of<Author, Book, Chapter, Review>();
    return shelf;
}

inline const SchemaHistory& history()
{
    static const SchemaHistory shelf{records().schema(1), {}};
    return shelf;
}

} // namespace Quillary::Shelf
