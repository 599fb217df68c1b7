#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"
#include "QuillaryCore/Documents/Desk.h"
#include "QuillaryCore/Store/ChangeSet.h"
#include "QuillaryCore/Store/Observers.h"
#include "QuillaryUI/Look/Formats.h"
#include "QuillaryUI/Paper/PagePress.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Quillary {

/// The library as the windows see it. It may go away for a while, when a command borrows it, and come back changed: so
/// windows keep keys, never records, and read again at `opened`.
class LibraryAccess : public QObject
{
    Q_OBJECT

public:
    LibraryAccess(PagePress& press, Formats formats, QObject* parent = nullptr);

    /// The library is there. What the environment borrows lives until `close`.
    void open(AssistantEnvironment environment);
    void close();
    [[nodiscard]] bool isOpen() const { return m_environment != nullptr; }

    // Only while it is open.
    [[nodiscard]] const AssistantEnvironment& environment() const;
    [[nodiscard]] Context& context() const { return environment().context; }
    [[nodiscard]] const Business& business() const { return environment().ownBusiness(); }
    [[nodiscard]] Desk desk() const { return {context(), business(), environment().calendar}; }
    [[nodiscard]] Instant now() const { return environment().clock.now(); }
    [[nodiscard]] Instant today() const; ///< the start of the day

    [[nodiscard]] const Formats& formats() const { return m_formats; }
    [[nodiscard]] PagePress& press() const { return m_press; }

    /// One step that can be undone, under the name that the menu shows. No value: it is done and saved; else the sentence
    /// that says why not, in the language of the windows, and nothing has changed.
    [[nodiscard]] std::optional<QString> perform(const QString& name, const std::function<void()>& work) const;

    /// The same for an operation that has a scope of its own.
    [[nodiscard]] std::optional<QString> attempt(const std::function<void()>& work) const;

    /// Does work that is taken back at once, whatever it did: to see what would be. Nobody is told.
    void tryOut(const std::function<void()>& work);

Q_SIGNALS:
    void opened();
    void closing();
    /// Something changed, whoever did it. Comes from the event loop, never from within a change.
    void changed(const ChangeSet& changes);

private:
    void tell();

    PagePress& m_press;
    Formats m_formats;
    std::unique_ptr<AssistantEnvironment> m_environment; ///< null: the library is away
    Subscription m_subscription;
    bool m_isTrying = false;
    std::vector<ChangeSet> m_untold;
};

} // namespace Quillary
