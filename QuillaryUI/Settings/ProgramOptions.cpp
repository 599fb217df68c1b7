#include "QuillaryUI/Settings/ProgramOptions.h"

#include <QSettings>
#include <QString>

namespace Quillary::ProgramOptions {

namespace {

const QString trayKey = QStringLiteral("window/staysInTray");
const QString noticesKey = QStringLiteral("notices/shown");

} // namespace

bool staysInTray()
{
    return QSettings().value(trayKey, false).toBool();
}

void setStaysInTray(bool stays)
{
    QSettings().setValue(trayKey, stays);
}

bool showsNotices()
{
    return QSettings().value(noticesKey, true).toBool();
}

void setShowsNotices(bool shows)
{
    QSettings().setValue(noticesKey, shows);
}

} // namespace Quillary::ProgramOptions
