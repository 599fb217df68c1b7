#include "QuillaryUI/Schedules/TimeSheet.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Model/TimeEntry.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Schedules/WorkTimes.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientPicker.h"
#include "QuillaryUI/Library/ProjectBox.h"
#include "QuillaryUI/Look/DateField.h"
#include "QuillaryUI/Schedules/TimeText.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLineEdit>

namespace Quillary {

TimeSheet::TimeSheet(LibraryAccess& library, std::int64_t entry, QWidget* host)
    : Sheet(entry == 0 ? tr("Add Time") : tr("Change Time"), entry == 0 ? tr("Add") : tr("Change"), host)
    , m_library(library)
    , m_entry(entry)
    , m_day(new QDateEdit(this))
    , m_time(new QLineEdit(this))
    , m_client(new ClientPicker(library, this))
    , m_project(new ProjectBox(library, tr("No project"), this))
    , m_note(new QLineEdit(this))
    , m_isBillable(new QCheckBox(tr("Will be billed"), this))
{
    DateField::dress(*m_day);
    m_day->setObjectName(QStringLiteral("timeDay"));
    m_time->setObjectName(QStringLiteral("timeSpan"));
    m_time->setPlaceholderText(tr("9:00–10:30, or how long: 1:30"));
    m_note->setObjectName(QStringLiteral("timeNote"));
    m_client->setObjectName(QStringLiteral("timeClient"));
    m_project->setObjectName(QStringLiteral("timeProject"));
    m_isBillable->setObjectName(QStringLiteral("timeBillable"));
    m_isBillable->setChecked(true);
    form().addRow(tr("Day"), m_day);
    form().addRow(tr("Time"), m_time);
    form().addRow(tr("Client"), m_client);
    form().addRow(tr("Project"), m_project);
    form().addRow(tr("Note"), m_note);
    form().addRow(QString(), m_isBillable);
    onAnswer([this] { return record(); });
}

void TimeSheet::begin()
{
    m_day->setDate(m_library.formats().qDate(m_library.now()));
    showEntry();
    open(m_time);
    m_time->selectAll();
}

void TimeSheet::showEntry()
{
    const TimeEntry* entry = m_entry != 0 ? m_library.context().find(Ref<TimeEntry>(m_entry)) : nullptr;
    if (entry == nullptr) {
        return;
    }
    if (entry->start && entry->end) {
        m_day->setDate(m_library.formats().qDate(*entry->start));
        m_shownTime = TimeText::span(m_library.formats().calendar(), *entry->start, *entry->end);
        m_time->setText(m_shownTime);
    }
    m_client->setClient(entry->client.key());
    m_project->setProject(entry->project.key());
    m_note->setText(text(entry->note));
    m_isBillable->setChecked(entry->isBillable);
}

/// Returns the entry's key. Throws: `UserError`.
std::int64_t TimeSheet::write()
{
    Context& context = m_library.context();
    const Calendar& calendar = m_library.formats().calendar();
    const WorkTimes::Setting setting{
        .now = m_library.now(), .calendar = calendar, .locale = m_library.formats().locale()};
    const CalendarDate day = calendar.date(m_library.formats().stored(m_day->date()));
    const std::string typed = utf8(m_time->text().trimmed());
    const Ref<Client> client(m_client->client());
    const Ref<Project> project(m_project->project());
    const std::string note = utf8(m_note->text().trimmed());
    if (m_entry == 0) {
        const WorkTimes times = WorkTimes::read(context, typed, day, setting);
        const TimeTracking::Work work{
            .client = client, .project = project, .note = note, .isBillable = m_isBillable->isChecked()};
        return TimeTracking::add(context, work, times.start, times.end).ref.key();
    }
    const TimeEntry* entry = context.find(Ref<TimeEntry>(m_entry));
    if (entry == nullptr) {
        throw UserError("The entry isn't there any more.");
    }
    TimeTracking::Change change{
        .client = client, .project = project, .note = note, .isBillable = m_isBillable->isChecked()};
    const bool isSameDay = entry->start && calendar.date(*entry->start) == day;
    if (!isSameDay || m_time->text() != m_shownTime) { // else the seconds, which aren't shown, stay
        const WorkTimes times = WorkTimes::readFor(context, *entry, typed, day, setting);
        change.start = times.start;
        change.end = times.end;
    }
    TimeTracking::edit(context, *entry, change);
    return m_entry;
}

std::optional<QString> TimeSheet::record()
{
    std::int64_t key = 0;
    auto refusal = m_library.perform(m_entry == 0 ? tr("Add Time") : tr("Change Time"), [&] { key = write(); });
    if (refusal) {
        return refusal;
    }
    QString warning;
    const TimeEntry* entry = m_library.context().find(Ref<TimeEntry>(key));
    if (entry != nullptr) {
        const std::size_t others = TimeTracking::overlaps(m_library.context(), *entry, m_library.now()).size();
        warning = others == 0   ? QString()
                  : others == 1 ? tr("Another entry counts some of the same time.")
                                : tr("%1 other entries count some of the same time.").arg(others);
    }
    Q_EMIT recorded(warning);
    return std::nullopt;
}

} // namespace Quillary
