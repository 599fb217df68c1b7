#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QWidget>

#include <cstdint>

class QLabel;
class QPushButton;
class QTableView;

namespace Quillary {

class ContactsModel;

/// The people at a client: whom emails are offered to, in which order.
class ContactsPanel : public QWidget
{
    Q_OBJECT

public:
    /// Sheets slide in over `host`.
    ContactsPanel(LibraryAccess& library, QWidget* host, QWidget* parent = nullptr);

    /// 0: of nobody.
    void setClient(std::int64_t key);

Q_SIGNALS:
    void failed(const QString& sentence);

private:
    void build();
    void edit(std::int64_t contact);
    void remove();
    void putFirst();
    void arrange();
    [[nodiscard]] std::int64_t chosen() const;

    LibraryAccess& m_library;
    QWidget* m_host;
    std::int64_t m_client = 0;
    std::int64_t m_wanted = 0; ///< the one to be chosen once their row is there
    ContactsModel* m_model;
    QTableView* m_table;
    QLabel* m_words;
    QPushButton* m_edit;
    QPushButton* m_first;
    QPushButton* m_remove;
};

} // namespace Quillary
