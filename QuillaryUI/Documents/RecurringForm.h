#pragma once

#include "QuillaryCore/Schedules/RecurringSetup.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>
#include <set>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace Quillary {

class ClientPicker;
class Sheet;

/// What is asked of a recurring invoice, whether it is new or there already. Nothing counts as chosen until somebody
/// touches it: all else shows what follows from what was, and below stands the schedule in words with its next dates, or
/// why it can't be like that.
class RecurringForm : public QObject
{
    Q_OBJECT

public:
    /// Makes or changes the template and returns it. In a scope of its own, and again and again to see what would be.
    using Work = std::function<const Document&(const RecurringChoices& choices)>;

    /// Adds its rows to those of a sheet, which owns this.
    RecurringForm(LibraryAccess& library, Sheet& sheet, Work work);

    /// Where the keyboard belongs first: whatever is missing, else the rhythm.
    [[nodiscard]] QWidget* firstField() const;

    /// Shows what would be.
    void refresh();

    /// Does it. No value: done, and `key` is that of the template; else the sentence that says why not.
    [[nodiscard]] std::optional<QString> carryOut(std::int64_t& key) const;

private:
    void build(QFormLayout& form);
    void buildNames(QFormLayout& form);
    void buildRhythm(QFormLayout& form);
    void buildEnd(QFormLayout& form);
    void listen();
    void touch(const QObject* field);
    [[nodiscard]] bool isChosen(const QObject* field) const { return m_chosen.contains(field); }
    [[nodiscard]] RecurringChoices choices() const;
    void chooseEnd(RecurringChoices& choices) const;
    void show(const Document& recurring);
    void showEnd(const Document& recurring);
    void showRows();
    void askForClient(const QString& name);

    LibraryAccess& m_library;
    Sheet& m_sheet;
    Work m_work;
    std::set<const QObject*> m_chosen;
    bool m_isShowing = false;
    QLineEdit* m_title;
    ClientPicker* m_client;
    QSpinBox* m_interval;
    QComboBox* m_unit;
    QSpinBox* m_day;
    QDateEdit* m_next;
    QComboBox* m_end;
    QSpinBox* m_count;
    QDateEdit* m_lastDay;
    QComboBox* m_period;
    QCheckBox* m_createsSent;
    QLabel* m_dates;
};

} // namespace Quillary
