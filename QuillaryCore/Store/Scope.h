#pragma once

namespace Quillary {

class Context;

/// One action of a user, a tool or a command: all of it is saved, or nothing of it stays.
///
/// Made by `Context::beginScope`. Without a `commit` the scope is rolled back when it goes, so an exception takes its
/// changes along, and only those. Scopes nest; the innermost ends first.
class [[nodiscard]] Scope
{
public:
    enum class Undo {
        possible,
        impossible, ///< what was done left the house: a document was issued, a mail sent; holds for all scopes around it
    };

    Scope(Scope&& other) noexcept;
    Scope& operator=(Scope&& other) = delete;
    ~Scope();

    /// Ends the scope. The outermost saves: on return its changes are on disk, and changes made outside of any scope
    /// are still pending and unsaved. A record that is not saved yet, but that the scope changed or referred to, is
    /// saved along: nothing else could be stored whole.
    /// Throws: `StoreError`, and the scope is still open.
    void commit(Undo undo = Undo::possible);

    /// Ends the scope; what it touched returns to what it was.
    void rollback();

private:
    friend class Context;
    Scope(Context& context, int depth)
        : m_context(&context)
        , m_depth(depth)
    {
    }

    Context* m_context; ///< null when the scope has ended
    int m_depth;
};

} // namespace Quillary
