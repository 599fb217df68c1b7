#include "QuillaryUI/Documents/DraftDesk.h"

#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Documents/DraftLines.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/StoreError.h"
#include "QuillaryUI/Documents/WindowWords.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace Quillary {

namespace {

constexpr int again = 3'000; ///< milliseconds

} // namespace

DraftDesk::DraftDesk(LibraryAccess& library, QObject* parent)
    : QObject(parent)
    , m_library(library)
{
    m_again.setSingleShot(true);
    m_again.setInterval(again);
    connect(&m_again, &QTimer::timeout, this, &DraftDesk::retry);
}

const Document* DraftDesk::document() const
{
    return m_library.isOpen() ? m_library.context().find(Ref<Document>(m_document)) : nullptr;
}

std::optional<DraftDesk::Refusal> DraftDesk::run(const Change& change) const
{
    bool isPassing = !m_library.isOpen();
    const std::optional<QString> refusal = m_library.attempt([&] {
        try {
            auto scope = m_library.context().beginScope(utf8(change.name));
            if (const Document* draft = m_library.context().find(Ref<Document>(change.document))) {
                change.work(*draft);
            }
            scope.commit();
        } catch (const StoreError&) {
            isPassing = true;
            throw;
        }
    });
    return refusal ? std::optional(Refusal{*refusal, isPassing}) : std::nullopt;
}

std::optional<QString> DraftDesk::perform(const QString& name, Work work)
{
    retry(); // it may build on what waits
    Change change{m_document, name, std::move(work)};
    const std::optional<Refusal> refusal = isWaiting() ? Refusal{m_reason, true} : run(change);
    if (!refusal) {
        return std::nullopt;
    }
    if (!refusal->isPassing) {
        return WindowWords::refusal(refusal->sentence);
    }
    m_reason = refusal->sentence;
    m_waiting.push_back(std::move(change));
    m_again.start();
    Q_EMIT waitingChanged();
    return std::nullopt;
}

void DraftDesk::retry()
{
    if (!isWaiting()) {
        return;
    }
    while (isWaiting()) {
        const std::optional<Refusal> refusal = run(m_waiting.front());
        if (refusal && refusal->isPassing) {
            m_reason = refusal->sentence;
            m_again.start();
            return;
        }
        m_waiting.erase(m_waiting.begin());
        if (refusal) {
            Q_EMIT refused(WindowWords::refusal(refusal->sentence));
        }
    }
    m_again.stop();
    Q_EMIT waitingChanged();
}

std::optional<QString> DraftDesk::change(const QString& name, const JSON& arguments)
{
    return perform(name, [&library = m_library, arguments](const Document& draft) {
        DocumentSession::openForUser(library.environment(), draft).apply(Arguments(arguments));
    });
}

std::optional<QString> DraftDesk::change(const QString& name, std::string_view field, JSON value)
{
    return change(name, JSON::object({{std::string(field), std::move(value)}}));
}

std::optional<QString> DraftDesk::moveLine(int from, int before)
{
    return perform(tr("Move Line"), [&library = m_library, from, before](const Document& draft) {
        DraftLines::move(library.context(), draft, static_cast<std::size_t>(from), static_cast<std::size_t>(before));
    });
}

std::optional<QString> DraftDesk::changeLine(const QString& name, int line, LineChange work)
{
    return perform(name, [&library = m_library, line, work](const Document& draft) {
        work(library.context(), draft, static_cast<std::size_t>(line));
    });
}

std::optional<QString> DraftDesk::nestLine(int line)
{
    return changeLine(tr("Make Sub-Line"), line, &DraftLines::nest);
}

std::optional<QString> DraftDesk::unnestLine(int line)
{
    return changeLine(tr("Take Out of Line"), line, &DraftLines::unnest);
}

bool DraftDesk::hasWaiting() const
{
    return std::ranges::any_of(m_waiting, [this](const Change& change) { return change.document == m_document; });
}

/// A look within a look sees the same.
bool DraftDesk::tryOut(const Work& work)
{
    bool isDone = false;
    const bool isInner = m_isLooking;
    const QScopedValueRollback looking(m_isLooking, true);
    m_library.tryOut([&] {
        for (const Change& change : m_waiting) {
            if (!isInner && change.document == m_document) {
                change.work(*document());
            }
        }
        work(*document());
        isDone = true;
    });
    return isDone;
}

void DraftDesk::look(const Work& look)
{
    if (document() == nullptr) {
        return;
    }
    if (m_isLooking || !hasWaiting() || !tryOut(look)) {
        look(*document());
    }
}

bool DraftDesk::preview(const JSON& arguments, const Work& look)
{
    return document() != nullptr && tryOut([&](const Document& draft) {
               DocumentSession session = DocumentSession::openForUser(m_library.environment(), draft);
               session.apply(Arguments(arguments));
               look(session.document());
           });
}

} // namespace Quillary
