#include "QuillaryCore/Tabular/NameCells.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/PersonName.h"
#include "QuillaryCore/Tabular/ImportText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

/// What companies' names end in, normalised.
constexpr std::array<std::string_view, 42> legalForms = {
    "ab",   "ag",  "aps",  "as",   "asbl", "bv",  "cie", "co",  "corp",    "doo", "ek",  "ev",  "eurl", "gbr",
    "gmbh", "inc", "kft",  "kg",   "llc",  "llp", "lp",  "ltd", "limited", "mbh", "nv",  "ohg", "oy",   "plc",
    "pty",  "sa",  "sagl", "sarl", "sas",  "se",  "sl",  "slu", "snc",     "spa", "srl", "sro", "ug",   "vof"};

bool isCompanyName(std::string_view name)
{
    const auto words = split(name, ' ');
    return std::ranges::any_of(words.begin() + 1, words.end(), [](std::string_view word) {
        const std::string form = ImportText::normalized(word);
        return std::ranges::find(legalForms, form) != legalForms.end();
    });
}

std::string fullName(const std::string& first, const std::string& last)
{
    return first.empty() || last.empty() ? first + last : first + " " + last;
}

bool isSame(std::string_view left, std::string_view right)
{
    return left == right || folded(left) == folded(right);
}

/// Whether a full name holds a part such as the last name: "Anna Maria Schmidt" and "Schmidt".
bool names(std::string_view fullName, std::string_view part)
{
    return folded(fullName).find(folded(part)) != std::string::npos;
}

ClientNames organization(NameCells cells)
{
    ClientNames result;
    std::string person = fullName(cells.first, cells.last);
    if (cells.company.empty()) {
        std::swap(cells.company, cells.name);
    }
    if (cells.company.empty()) {
        std::swap(cells.company, person);
    }
    if (person.empty()) {
        person = std::move(cells.name);
    }
    if (!isSame(person, cells.company)) {
        result.contactPerson = std::move(person);
    }
    result.name = std::move(cells.company);
    return result;
}

ClientNames person(NameCells cells)
{
    ClientNames result;
    result.kind = ClientKind::person;
    if (cells.first.empty() && cells.last.empty()) {
        if (cells.name.empty()) {
            std::swap(cells.name, cells.company);
        }
        PersonName split = personName(cells.name);
        result.first = std::move(split.first);
        result.last = std::move(split.last);
    } else {
        result.first = std::move(cells.first);
        result.last = std::move(cells.last);
    }
    result.name = std::move(cells.company);
    return result;
}

bool isPerson(const NameCells& cells)
{
    if (cells.kind) {
        return *cells.kind == ClientKind::person;
    }
    if (!cells.company.empty()) {
        return false;
    }
    if (!cells.first.empty() || !cells.last.empty()) {
        return cells.name.empty() || names(cells.name, cells.last.empty() ? cells.first : cells.last);
    }
    return cells.hasCompanyColumn && !cells.name.empty() && !isCompanyName(cells.name);
}

} // namespace

ClientNames clientNames(NameCells cells)
{
    return isPerson(cells) ? person(std::move(cells)) : organization(std::move(cells));
}

} // namespace Quillary
