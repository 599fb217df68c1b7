#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QWidget>

#include <cstdint>
#include <optional>

class QLabel;
class QTableView;
class QTabWidget;

namespace Quillary {

class ClientDocumentsModel;
class ContactsPanel;
class FieldForm;
class TimeModel;
struct Client;

/// One client: what they owe, their documents and working time, and all that is known of them, saved as it is typed.
class ClientDetails : public QWidget
{
    Q_OBJECT

public:
    explicit ClientDetails(LibraryAccess& library, QWidget* parent = nullptr);

    /// 0: none.
    void setClient(std::int64_t key);
    [[nodiscard]] std::int64_t client() const { return m_client; }

    void setBalance(const QString& balance);

    /// Puts the keyboard into the name.
    void begin();
    void flush();
    void refreshDay();

Q_SIGNALS:
    void wantedDocument(std::int64_t key);
    void failed(const QString& sentence);

private:
    void build();
    void addFields();
    QTableView* buildDocuments();
    QTableView* buildTime();
    void showBalance();
    void showInvoice(int timeRow);
    void refresh();
    void showFields(const Client& client);
    void showWhatIsUsual(const Client& client);
    [[nodiscard]] std::optional<QString> save(const QString& name, const QString& value);
    [[nodiscard]] QString plainNumber(const QString& name, const QString& value) const;
    [[nodiscard]] const Client* record() const;

    LibraryAccess& m_library;
    std::int64_t m_client = 0;
    QLabel* m_title;
    QLabel* m_balance;
    FieldForm* m_form;
    ContactsPanel* m_contacts;
    ClientDocumentsModel* m_documents;
    TimeModel* m_time;
    QTabWidget* m_tables;
    QString m_open; ///< the balance
};

} // namespace Quillary
