#include "QuillaryUI/Library/LibraryAccess.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace Quillary {

LibraryAccess::LibraryAccess(PagePress& press, Formats formats, QObject* parent)
    : QObject(parent)
    , m_press(press)
    , m_formats(std::move(formats))
{
}

void LibraryAccess::open(AssistantEnvironment environment)
{
    m_environment = std::make_unique<AssistantEnvironment>(std::move(environment));
    m_subscription = context().onChanged([this](const ChangeSet& changes) {
        if (m_isTrying) {
            return; // what was told of is as it was before
        }
        m_untold.push_back(changes);
        if (m_untold.size() == 1) {
            QTimer::singleShot(0, this, &LibraryAccess::tell);
        }
    });
    Q_EMIT opened();
}

void LibraryAccess::close()
{
    if (isOpen()) {
        Q_EMIT closing();
        m_subscription.end();
        m_untold.clear(); // everything is read again
        m_environment.reset();
    }
}

const AssistantEnvironment& LibraryAccess::environment() const
{
    precondition(m_environment != nullptr, "the library is asked while it is open");
    return *m_environment;
}

Instant LibraryAccess::today() const
{
    return environment().calendar.startOfDay(now());
}

std::optional<QString> LibraryAccess::perform(const QString& name, const std::function<void()>& work) const
{
    return attempt([&] {
        auto scope = context().beginScope(utf8(name));
        work();
        scope.commit();
    });
}

std::optional<QString> LibraryAccess::attempt(const std::function<void()>& work) const
{
    if (!isOpen()) {
        return tr("Another Quillary is using the library at this moment. Try again in a second.");
    }
    try {
        work();
        return std::nullopt;
    } catch (const UserError& error) {
        return CoreText::sentence(error.message());
    }
}

void LibraryAccess::tryOut(const std::function<void()>& work)
{
    if (!isOpen()) {
        return;
    }
    const QScopedValueRollback trying(m_isTrying, true);
    try {
        const auto scope = context().beginScope({});
        work();
    } catch (const UserError&) { // NOLINT(bugprone-empty-catch): it would be refused, and nothing was to stay
    }
}

void LibraryAccess::tell()
{
    for (const ChangeSet& changes : std::exchange(m_untold, {})) {
        Q_EMIT changed(changes);
    }
}

} // namespace Quillary
