#include "QuillaryUI/Schedules/TimeInvoiceSheet.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/DocumentSession.h"
#include "QuillaryCore/Assistant/Operations/UnbilledTime.h"
#include "QuillaryCore/Assistant/Tools/Arguments.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Project.h"
#include "QuillaryCore/Schedules/TimeInvoicing.h"
#include "QuillaryCore/Schedules/TimeMath.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/ClientPicker.h"
#include "QuillaryUI/Library/ProjectBox.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QComboBox>
#include <QFormLayout>

#include <algorithm>
#include <vector>

namespace Quillary {

TimeInvoiceSheet::TimeInvoiceSheet(LibraryAccess& library, QWidget* host)
    : Sheet(tr("Invoice Time"), tr("Make Draft"), host)
    , m_library(library)
    , m_client(new ClientPicker(library, this))
    , m_project(new ProjectBox(library, tr("All projects"), this))
    , m_grouping(new QComboBox(this))
    , m_rounding(new QComboBox(this))
{
    m_client->setObjectName(QStringLiteral("billedClient"));
    m_project->setObjectName(QStringLiteral("billedProject"));
    m_grouping->setObjectName(QStringLiteral("billedGrouping"));
    m_rounding->setObjectName(QStringLiteral("billedRounding"));
    for (const TimeInvoicing::Grouping grouping : TimeInvoicing::allGroupings) {
        m_grouping->addItem(CoreText::word(TimeInvoicing::title(grouping)), int(grouping));
    }
    m_grouping->setCurrentIndex(m_grouping->findData(int(TimeInvoicing::Grouping::byProject)));
    for (const std::int64_t minutes : TimeMath::roundingChoices) {
        m_rounding->addItem(minutes == 0 ? tr("Not rounded") : tr("Up to %1 minutes").arg(minutes), qlonglong(minutes));
    }
    form().addRow(tr("Client"), m_client);
    form().addRow(tr("Project"), m_project);
    form().addRow(tr("Lines"), m_grouping);
    form().addRow(tr("Each entry"), m_rounding);
    connect(m_client, &ClientPicker::picked, this, &TimeInvoiceSheet::showUnbilled);
    onAnswer([this] { return make(); });
}

void TimeInvoiceSheet::begin(std::int64_t client)
{
    if (client == 0) {
        for (const UnbilledTime& time : unbilledTime(m_library.environment(), std::nullopt)) {
            client = client == 0 && !time.projects.empty() ? time.client : client;
        }
    }
    m_client->setClient(client);
    m_rounding->setCurrentIndex(std::max(0, m_rounding->findData(qlonglong(m_library.business().timeRoundingMinutes))));
    showUnbilled();
    open(m_client);
}

void TimeInvoiceSheet::showUnbilled()
{
    if (!m_library.isOpen() || m_client->client() == 0) {
        setExplanation(tr("Whose time is to be billed?"));
        return;
    }
    const Formats& formats = m_library.formats();
    QString sentence = tr("Nothing of this client's time is unbilled.");
    for (const UnbilledTime& time : unbilledTime(m_library.environment(), Ref<Client>(m_client->client()))) {
        if (!time.projects.empty()) {
            sentence = tr("%1 hours are unbilled, worth %2.")
                           .arg(formats.quantity(time.hoursThousandths()),
                                formats.money(time.value(), m_library.business().currencyCode));
        }
        if (time.hourlyRate == 0) {
            sentence += QLatin1Char(' ') + tr("No hourly rate is set, so the hours cost nothing.");
        }
        if (time.runningSeconds > 0) {
            sentence += QLatin1Char(' ') + tr("What the timer counts is not billed before it is stopped.");
        }
    }
    setExplanation(sentence);
}

std::optional<QString> TimeInvoiceSheet::make()
{
    const Client* client = m_library.isOpen() ? m_library.context().find(Ref<Client>(m_client->client())) : nullptr;
    if (client == nullptr) {
        return tr("Choose the client whose time is to be billed.");
    }
    DocumentSession::Time time;
    if (m_project->project() != 0) {
        time.project = Ref<Project>(m_project->project());
    }
    time.grouping = TimeInvoicing::Grouping(m_grouping->currentData().toInt());
    time.roundingMinutes = m_rounding->currentData().toLongLong();
    std::int64_t document = 0;
    const auto refusal = m_library.perform(tr("Invoice Time"), [&] {
        DocumentSession session = DocumentSession::create(m_library.environment(), "invoice");
        const JSON arguments = JSON::object({{"client", Lookup::idText(client->uuid)}});
        session.apply(Arguments(arguments));
        session.addTime(time);
        document = session.document().ref.key();
    });
    if (!refusal) {
        Q_EMIT made(document);
    }
    return refusal;
}

} // namespace Quillary
