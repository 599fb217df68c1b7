#include "QuillaryUI/Catalog/CatalogSection.h"

#include "QuillaryUI/Catalog/RecordDesk.h"
#include "QuillaryUI/Catalog/RecordPanel.h"
#include "QuillaryUI/Catalog/RecordTexts.h"

#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace Quillary {

CatalogSection::CatalogSection(LibraryAccess& library, QWidget* parent)
    : Section(parent)
    , m_kinds(new QTabBar(this))
    , m_pages(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("catalog"));
    m_kinds->setObjectName(QStringLiteral("catalogKinds"));
    m_kinds->setAccessibleName(tr("Kinds"));
    m_kinds->setDrawBase(false);
    m_kinds->setExpanding(false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_kinds);
    column->addWidget(m_pages, 1);
    const Locale& locale = library.formats().locale();
    add(QStringLiteral("items"),
        new RecordPanel(library, RecordDesks::items(library), RecordTexts::items(locale), this));
    add(QStringLiteral("projects"),
        new RecordPanel(library, RecordDesks::projects(library), RecordTexts::projects(), this));
    add(QStringLiteral("units"), new RecordPanel(library, RecordDesks::units(library), RecordTexts::units(), this));
    add(QStringLiteral("tax-rates"),
        new RecordPanel(library, RecordDesks::taxRates(library), RecordTexts::taxRates(), this));
    add(QStringLiteral("texts"), new RecordPanel(library, RecordDesks::presets(library), RecordTexts::presets(), this));
    connect(m_kinds, &QTabBar::currentChanged, this, [this](int place) {
        flush();
        m_pages->setCurrentIndex(place);
    });
}

void CatalogSection::add(const QString& name, RecordPanel* panel)
{
    m_names.push_back(name);
    m_panels.push_back(panel);
    m_pages->addWidget(panel);
    m_kinds->addTab(panel->texts().title);
    connect(panel, &Section::told, this, &CatalogSection::told);
    connect(panel, &Section::failed, this, &CatalogSection::failed);
}

QStringList CatalogSection::pageNames() const
{
    return m_names;
}

void CatalogSection::showPage(const QString& name)
{
    m_kinds->setCurrentIndex(int(m_names.indexOf(name)));
}

RecordPanel* CatalogSection::current() const
{
    return m_panels[static_cast<std::size_t>(m_pages->currentIndex())];
}

void CatalogSection::makeNew()
{
    current()->makeNew();
}

void CatalogSection::find()
{
    current()->find();
}

void CatalogSection::flush()
{
    for (RecordPanel* panel : m_panels) {
        panel->flush();
    }
}

} // namespace Quillary
