#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace Quillary {

class JSON; // Qt's own compiler stumbles over the concepts that its header includes
struct Document;

/// Changes one draft for its editor: every change is a step of its own, checked by the operation that an assistant's call
/// ends in.
///
/// What the library can't take for a reason that passes, such as a full disk, isn't refused: it waits here with all that
/// follows it, whatever draft is shown meanwhile, and is tried again until the library takes it. The editor shows the
/// draft as if it were saved.
class DraftDesk : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<void(const Document& draft)>;

    explicit DraftDesk(LibraryAccess& library, QObject* parent = nullptr);

    void setDocument(std::int64_t key) { m_document = key; }
    [[nodiscard]] std::int64_t key() const { return m_document; }
    [[nodiscard]] LibraryAccess& library() const { return m_library; }

    /// Null: there is none, or the library is away.
    [[nodiscard]] const Document* document() const;

    /// Arguments of `update_document`, beside the document itself. No value: done, or waiting; else the sentence that
    /// says why not.
    [[nodiscard]] std::optional<QString> change(const QString& name, const JSON& arguments);
    [[nodiscard]] std::optional<QString> change(const QString& name, std::string_view field, JSON value);

    /// The same for another operation. `work` copies what it needs.
    [[nodiscard]] std::optional<QString> perform(const QString& name, Work work);

    /// Moves a top-level line, with its sub-lines, before another one. Counted from 0 in print order.
    [[nodiscard]] std::optional<QString> moveLine(int from, int before);

    /// A top-level line becomes a sub-line of the one above it; a sub-line becomes a top-level line again.
    [[nodiscard]] std::optional<QString> nestLine(int line);
    [[nodiscard]] std::optional<QString> unnestLine(int line);

    /// Shows the draft with what waits. Nothing where there is none.
    void look(const Work& look);

    /// The same as the arguments would make it, and changes nothing. False: they would be refused.
    bool preview(const JSON& arguments, const Work& look);

    /// Tries again what waits, in its order.
    void retry();
    [[nodiscard]] bool isWaiting() const { return !m_waiting.empty(); }
    /// Why.
    [[nodiscard]] const QString& reason() const { return m_reason; }

Q_SIGNALS:
    /// Something more waits, or nothing does any more.
    void waitingChanged();
    /// What waited is refused for good.
    void refused(const QString& sentence);

private:
    struct Change
    {
        std::int64_t document = 0;
        QString name;
        Work work;
    };

    using LineChange = void (*)(Context& context, const Document& draft, std::size_t line);
    [[nodiscard]] std::optional<QString> changeLine(const QString& name, int line, LineChange work);
    /// Why a change wasn't made.
    struct Refusal
    {
        QString sentence;
        bool isPassing = false; ///< the library couldn't take it, whatever it is
    };
    [[nodiscard]] std::optional<Refusal> run(const Change& change) const;
    [[nodiscard]] bool hasWaiting() const;
    bool tryOut(const Work& work);

    LibraryAccess& m_library;
    std::int64_t m_document = 0;
    std::vector<Change> m_waiting;
    QString m_reason;
    QTimer m_again;
    bool m_isLooking = false;
};

} // namespace Quillary
