#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QDialog>

#include <cstdint>

class QLineEdit;
class QListWidget;

namespace Quillary {

/// Opens documents and clients by a few letters: type, choose with the arrows, Enter.
class QuickOpen : public QDialog
{
    Q_OBJECT

public:
    QuickOpen(LibraryAccess& library, QWidget* parent);

    void begin();

Q_SIGNALS:
    void wantedDocument(std::int64_t key);
    void wantedClient(std::int64_t key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search(const QString& typed);
    void addDocument(std::int64_t key);
    void addClient(std::int64_t key);
    void take();

    LibraryAccess& m_library;
    QLineEdit* m_field;
    QListWidget* m_hits;
};

} // namespace Quillary
