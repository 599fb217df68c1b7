#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QLineEdit>

#include <cstdint>

class QCompleter;
class QStandardItemModel;

namespace Quillary {

/// Chooses a client by a few letters of the name, number or city. Where a document gets its client, a name that nobody
/// has is offered as a new one; where clients are only looked for, an emptied field means none.
class ClientPicker : public QLineEdit
{
    Q_OBJECT

public:
    enum class Offers { existing, newToo };

    explicit ClientPicker(LibraryAccess& library, QWidget* parent = nullptr, Offers offers = Offers::newToo);

    /// Shows a client; 0: none.
    void setClient(std::int64_t key);
    [[nodiscard]] std::int64_t client() const { return m_client; }

Q_SIGNALS:
    void picked(std::int64_t key);
    void wantedNew(const QString& name);

protected:
    bool event(QEvent* event) override;

private:
    void suggest(const QString& typed);
    void take(const QModelIndex& index);
    void finish();

    LibraryAccess& m_library;
    Offers m_offers;
    QStandardItemModel* m_hits;
    QCompleter* m_completer;
    std::int64_t m_client = 0;
};

} // namespace Quillary
