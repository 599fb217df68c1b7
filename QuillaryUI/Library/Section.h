#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <cstdint>

class QAction;

namespace Quillary {

/// One entry of the sidebar. It reads the library when it is opened and when it changes, and holds no record.
class Section : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Makes the section's own kind of thing and opens it for typing. Nothing where there is none.
    virtual void makeNew() {}

    /// Puts the keyboard into the search field, where there is one.
    virtual void find() {}

    /// Saves what was typed and not saved yet.
    virtual void flush() {}

    /// What the library couldn't take yet and would be lost if the program ended now, as a sentence. Empty: nothing.
    [[nodiscard]] virtual QString unsavedWork() const { return {}; }

    /// What can be done to what is chosen, for the window's menu.
    [[nodiscard]] virtual QList<QAction*> documentActions() const { return {}; }

    /// Another day has begun.
    virtual void refreshDay() {}

    /// What the section is divided into, such as the groups of the settings. Empty: it isn't.
    [[nodiscard]] virtual QStringList pageNames() const { return {}; }
    virtual void showPage(const QString& /*name*/) {}

Q_SIGNALS:
    /// Something went well; something went wrong: a sentence each.
    void told(const QString& sentence);
    void failed(const QString& sentence);
    /// A document, or a client, is to be shown in its own section.
    void wantedDocument(std::int64_t key);
    void wantedClient(std::int64_t key);
    /// Another section is to be shown, by its name.
    void wantedSection(const QString& name);
};

} // namespace Quillary
