#include "QuillaryUI/Settings/LogoRow.h"

#include "QuillaryCore/Assistant/Operations/BusinessSettings.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryUI/Look/Theme.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include <filesystem>

namespace Quillary {

namespace {

constexpr int pictureWidth = 240;
constexpr int pictureHeight = 72;
/// More than any picture for a letterhead; what is kept of it is told by the maker.
constexpr auto largestFile = std::size_t{10'000'000};

QString askForFile(QWidget* parent)
{
    return QFileDialog::getOpenFileName(
        parent, LogoRow::tr("Choose a Logo"), {}, LogoRow::tr("Pictures (*.png *.jpg *.jpeg *.webp *.svg)"));
}

} // namespace

LogoRow::LogoRow(LibraryAccess& library, ProgramPlaces::LogoMaker makeLogo, QWidget* parent)
    : QWidget(parent)
    , m_library(library)
    , m_makeLogo(std::move(makeLogo))
    , m_chooseFile(askForFile)
    , m_picture(new QLabel(this))
    , m_error(new QLabel(this))
    , m_remove(new QPushButton(tr("Remove"), this))
{
    setObjectName(QStringLiteral("logo"));
    m_picture->setAccessibleName(tr("Logo"));
    auto* choose = new QPushButton(tr("Choose…"), this);
    choose->setObjectName(QStringLiteral("chooseLogo"));
    choose->setAccessibleName(tr("Choose a logo"));
    choose->setEnabled(m_makeLogo != nullptr);
    m_remove->setObjectName(QStringLiteral("removeLogo"));
    m_remove->setAccessibleName(tr("Remove the logo"));
    m_error->setObjectName(QStringLiteral("error_logo"));
    m_error->setTextFormat(Qt::PlainText);
    m_error->setWordWrap(true);
    QPalette colors = m_error->palette();
    colors.setColor(QPalette::WindowText, Theme::errorColor());
    m_error->setPalette(colors);
    m_error->hide();
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(m_picture);
    row->addWidget(choose);
    row->addWidget(m_remove);
    row->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addLayout(row);
    column->addWidget(m_error);
    connect(choose, &QPushButton::clicked, this, &LogoRow::choose);
    connect(m_remove, &QPushButton::clicked, this, &LogoRow::remove);
    refresh();
}

void LogoRow::refresh()
{
    if (!m_library.isOpen()) {
        return;
    }
    const Bytes& png = m_library.business().logoData;
    QPixmap picture;
    if (!png.empty()) {
        picture.loadFromData(png.data(), static_cast<uint>(png.size()), "PNG");
    }
    if (!picture.isNull()) {
        m_picture->setPixmap(
            picture.scaled(pictureWidth, pictureHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    }
    m_picture->setVisible(!picture.isNull());
    m_remove->setVisible(!png.empty());
}

void LogoRow::choose()
{
    const QString file = m_chooseFile(this);
    if (file.isEmpty()) {
        return;
    }
    tell(m_library
             .perform(tr("Change Logo"),
                      [&] {
                          const std::string bytes = readFile(std::filesystem::path(utf8(file)), largestFile);
                          BusinessSettings::setLogo(m_library.environment(),
                                                    m_makeLogo(Bytes(bytes.begin(), bytes.end())));
                      })
             .value_or(QString()));
}

void LogoRow::remove()
{
    tell(m_library.perform(tr("Remove Logo"), [this] { BusinessSettings::setLogo(m_library.environment(), {}); })
             .value_or(QString()));
}

void LogoRow::tell(const QString& sentence)
{
    m_error->setText(sentence);
    m_error->setVisible(!sentence.isEmpty());
}

} // namespace Quillary
