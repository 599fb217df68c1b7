#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <vector>

class QStackedWidget;
class QTabBar;

namespace Quillary {

class RecordPanel;

/// What documents are made of again and again: items, projects, units, tax rates and texts.
class CatalogSection : public Section
{
    Q_OBJECT

public:
    explicit CatalogSection(LibraryAccess& library, QWidget* parent = nullptr);

    /// One of what is in front.
    void makeNew() override;
    void find() override;
    void flush() override;

    /// "items", "projects", "units", "tax-rates", "texts".
    [[nodiscard]] QStringList pageNames() const override;
    void showPage(const QString& name) override;

private:
    void add(const QString& name, RecordPanel* panel);
    [[nodiscard]] RecordPanel* current() const;

    QTabBar* m_kinds;
    QStackedWidget* m_pages;
    QStringList m_names;
    std::vector<RecordPanel*> m_panels;
};

} // namespace Quillary
