#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

class QListWidget;
class QStackedWidget;
class QVBoxLayout;

namespace Quillary {

class Section;

/// The sidebar and the section that is chosen in it. A section is made when somebody first wants it: the window is on
/// the screen sooner, and what is never looked at costs nothing.
class SectionDeck : public QWidget
{
    Q_OBJECT

public:
    using Maker = std::function<Section*(QWidget* parent)>;

    explicit SectionDeck(QWidget* parent = nullptr);

    /// At the end. `make` returns a section of the parent that it is given: a parent that comes later would have every
    /// widget of it dressed again.
    void add(const QString& name, const QString& title, const QString& icon, Maker make);

    void show(const QString& name);
    void show(int place);

    /// Made if need be; null: there is none of that name.
    [[nodiscard]] Section* section(const QString& name);
    [[nodiscard]] Section* current();
    [[nodiscard]] bool isEmpty() const; ///< nothing was shown yet
    [[nodiscard]] QStringList names() const;
    [[nodiscard]] QString title(int place) const;
    [[nodiscard]] int count() const { return int(m_entries.size()); }

    /// Those that are there already.
    [[nodiscard]] std::vector<Section*> made() const;

    /// Above the sections, below them, and below the list of them.
    [[nodiscard]] QVBoxLayout& head() { return *m_head; }
    [[nodiscard]] QVBoxLayout& tail() { return *m_tail; }
    [[nodiscard]] QVBoxLayout& foot() { return *m_foot; }

Q_SIGNALS:
    void wasMade(Section* section);
    /// Another one is about to be shown.
    void leaving();

private:
    struct Entry
    {
        QString name;
        Maker make;
        Section* section = nullptr;
    };

    void choose(int place);
    Section* ensure(Entry& entry);

    QListWidget* m_list;
    QStackedWidget* m_pages;
    QVBoxLayout* m_head;
    QVBoxLayout* m_tail;
    QVBoxLayout* m_foot;
    std::vector<Entry> m_entries;
};

} // namespace Quillary
