#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QList>
#include <QWidget>

#include <cstdint>
#include <optional>

class QAction;
class QBoxLayout;
class QLabel;
class QPushButton;

namespace Quillary {

class EditedPage;
class RecurringCommands;
struct Document;
struct OwedInvoice;

/// One recurring invoice: its schedule in words, the next dates, and its page.
class RecurringPane : public QWidget
{
    Q_OBJECT

public:
    /// Its sheets slide in over the parent that it is made with.
    RecurringPane(LibraryAccess& library, QWidget* parent);

    /// 0: nothing is chosen.
    void setTemplate(std::int64_t key);

    void reload();

    /// What can be done to it, for the window's menu and a list's keys.
    [[nodiscard]] QList<QAction*> documentActions() const;
    [[nodiscard]] QList<QAction*> listActions() const;

    /// Opens the editor of its contents and puts the keyboard into it.
    void beginEditing();
    void endEditing();
    void flush();
    [[nodiscard]] QString unsavedWork() const;

Q_SIGNALS:
    void wantedDocument(std::int64_t key);
    void wantedClient(std::int64_t key);
    void wantedSection(const QString& name);
    void editingChanged(bool isEditing);
    void told(const QString& sentence);
    void failed(const QString& sentence);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] const Document* record() const;
    void build();
    void buildHead();
    void listen();
    void showDates(const Document& recurring);
    void showOwed(const std::optional<OwedInvoice>& owed);

    LibraryAccess& m_library;
    std::int64_t m_template = 0;
    RecurringCommands* m_commands;
    QWidget* m_head;
    QBoxLayout* m_row;
    QLabel* m_name;
    QLabel* m_schedule;
    QLabel* m_dates;
    QLabel* m_owed;
    QPushButton* m_edit;
    QPushButton* m_change;
    QPushButton* m_make;
    QPushButton* m_pause;
    EditedPage* m_content;
};

} // namespace Quillary
