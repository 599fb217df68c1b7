#include "QuillaryCore/Tabular/ClientImport.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/ContactPerson.h"
#include "QuillaryCore/Model/NumberedKind.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryCore/Store/Context.h"

#include <fmt/format.h>

#include <algorithm>
#include <future>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

constexpr std::size_t rowsPerReport = 1000;
constexpr std::size_t rowsWorthAWorker = 500; // which takes as long to begin as some twenty rows to read

void report(const ClientImport::Progress& progress, std::size_t done, std::size_t total)
{
    if (progress && (done % rowsPerReport == 0 || done == total)) {
        progress(done, total);
    }
}

void insert(Context& library, const ReadClient& read)
{
    Client& client = library.insert<Client>();
    const auto ref = client.ref;
    const auto uuid = client.uuid;
    const auto createdAt = client.createdAt;
    client = read.client;
    client.ref = ref;
    client.uuid = uuid;
    client.createdAt = createdAt;
    if (!read.contactPerson.empty()) {
        auto& person = library.insert<ContactPerson>();
        person.name = read.contactPerson;
        person.client = client.ref;
    }
}

std::string_view shared(ClientMatcher::Trait trait)
{
    switch (trait) {
    case ClientMatcher::Trait::number:
        return "number";
    case ClientMatcher::Trait::vatID:
        return "VAT ID";
    case ClientMatcher::Trait::email:
        return "email address";
    case ClientMatcher::Trait::name:
        return "name";
    }
    return {};
}

} // namespace

std::string_view title(ImportStatus status)
{
    switch (status) {
    case ImportStatus::isNew:
        return "new";
    case ImportStatus::duplicate:
        return "duplicate";
    case ImportStatus::empty:
        return "empty";
    }
    return {};
}

std::string sentence(const ClientMatcher::Match& match)
{
    const std::string where = match.row ? fmt::format("in row {}", *match.row) : "in the library";
    return fmt::format("Has the same {} as “{}” {}.", shared(match.trait), match.name, where);
}

ClientImport::ClientImport(const CSVRows& rows, ImportColumns columns, Context* library, const Progress& progress)
    : m_reader(std::move(columns))
{
    // Cells are read without the library, and the library without cells: a long list is read by a worker meanwhile.
    const auto when = rows.size() > rowsWorthAWorker ? std::launch::async : std::launch::deferred;
    auto reading = std::async(when, [this, &rows] { return read(rows); });
    if (library != nullptr) {
        m_matcher.addLibrary(*library);
    }
    const std::vector<ClientMatcher::Keys> keys = reading.get();
    for (std::size_t done = 0; done < m_rows.size(); ++done) {
        judge(m_rows[done], keys[done]);
        report(progress, done + 1, m_rows.size());
    }
}

std::vector<ClientMatcher::Keys> ClientImport::read(const CSVRows& rows)
{
    const std::size_t first = std::min(m_reader.columns().firstRow(), rows.size());
    std::vector<ClientMatcher::Keys> keys;
    m_rows.reserve(rows.size() - first);
    keys.reserve(rows.size() - first);
    for (std::size_t i = first; i < rows.size(); ++i) {
        Row& row = m_rows.emplace_back();
        row.number = rows.number(i);
        row.read = m_reader.read(rows[i]);
        keys.emplace_back(row.read.client);
    }
    return keys;
}

void ClientImport::judge(Row& row, const ClientMatcher::Keys& keys)
{
    if (row.read.isEmpty) {
        return;
    }
    row.match = m_matcher.find(keys);
    row.status = row.match ? ImportStatus::duplicate : ImportStatus::isNew;
    if (row.status == ImportStatus::isNew) {
        if (const auto other = m_matcher.rowWithName(keys)) {
            row.read.warnings.push_back(
                {ImportWarning::Reason::sameName, fmt::format("Row {} has the same name and another number.", *other)});
        }
        m_matcher.add(keys, row.number);
    }
}

std::size_t ClientImport::count(ImportStatus status) const
{
    return static_cast<std::size_t>(std::ranges::count(m_rows, status, &Row::status));
}

void ClientImport::number(Context& library, const Business& business, const Calendar& calendar)
{
    std::vector<std::string*> missing;
    for (Row& row : m_rows) {
        if (row.status == ImportStatus::isNew && row.read.client.number.empty()) {
            missing.push_back(&row.read.client.number);
        }
    }
    std::vector<std::string> numbers = Numbering::assignMany(
        library,
        missing.size(),
        [this](const std::string& number) { return m_matcher.isTaken(number); },
        NumberedKind::client,
        library.clock().now(),
        business,
        calendar);
    for (std::size_t i = 0; i < missing.size(); ++i) {
        *missing[i] = std::move(numbers[i]);
    }
}

void ClientImport::run(Context& library, const Business& business, const Calendar& calendar, const Progress& progress)
{
    Scope scope = library.beginScope("Import clients");
    number(library, business, calendar);
    std::size_t done = 0;
    for (const Row& row : m_rows) {
        if (row.status == ImportStatus::isNew) {
            insert(library, row.read);
        }
        report(progress, ++done, m_rows.size());
    }
    scope.commit();
}

} // namespace Quillary
