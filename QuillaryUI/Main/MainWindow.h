#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Model/DocumentKind.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Settings/ProgramPlaces.h"

#include <QMainWindow>

#include <cstdint>
#include <string>

class QFrame;
class QLabel;
class QMenu;
class QStackedWidget;
class QToolButton;

namespace Quillary {

class LockKeeper;
class LockPage;
class QuietNotice;
class Section;
class SectionDeck;
class TrayIcon;

/// The window: the sections at the left, the chosen one beside them, and what there is to say at the bottom.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(LibraryAccess& library, const ProgramPlaces& places, QWidget* parent = nullptr);
    ~MainWindow() override;

    /// The first time with the first section, unless another was chosen before.
    void setVisible(bool visible) override;

    /// By its name, such as "invoices", or with one of its pages, such as "settings/assistants".
    void showSection(const QString& name);
    /// In front of whoever asks, wherever it was.
    void present();
    /// Ends the program, whatever closing the window does.
    void end();
    [[nodiscard]] Section* section(const QString& name) const;
    [[nodiscard]] QStringList sectionNames() const;

    /// Shows a document in its section, or a client in theirs.
    void showDocument(std::int64_t key);
    void showClient(std::int64_t key);

    /// Saves what was typed and not saved yet.
    void flush();

    /// Another day has begun: what is overdue, for one, is derived anew.
    void refreshDay();

    /// Hides everything behind the question for the passphrase. Without a passphrase it shows where one is set.
    void lock();
    [[nodiscard]] bool isLocked() const;

    /// A quiet line at the bottom, for a while.
    void tell(const QString& sentence);
    /// The same about a document that somebody else made or changed, with a way to it.
    void tellOf(const QString& sentence, std::int64_t document);
    /// Whether somebody is typing here at this moment, so that nothing may come between.
    [[nodiscard]] bool isBeingTypedIn() const;
    /// A bar across the top, until it is put away.
    void warn(const QString& sentence);
    /// The same about a recurring invoice, with a way to it. 0: to all of them.
    void warnOfRecurring(const QString& sentence, std::int64_t key);

Q_SIGNALS:
    void unlocked();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildWarning();
    void addSections(const ProgramPlaces& places);
    [[nodiscard]] Section* makeOverview(QWidget* parent);
    [[nodiscard]] QString unsavedWork() const;
    [[nodiscard]] bool mayLoseWork();
    void addTimer();
    void listenTo(Section* section) const;
    void showDocuments(DocumentKind kind, DisplayStatus status, const std::string& currencyCode);
    void buildMenus();
    void buildDocumentMenu(QMenu& menu);
    void showKeys();
    void undo(bool isRedo);
    void showFirstStart();
    void prepareLock();
    void prepareTray();
    void cover();
    void uncover();
    void restoreLayout();

    LibraryAccess& m_library;
    QStackedWidget* m_whole; ///< the sections, or the first start or the lock before them
    SectionDeck* m_deck;
    QFrame* m_warning;
    QLabel* m_warningText;
    QToolButton* m_warningShow;
    std::int64_t m_warnedOf = 0; ///< a recurring invoice
    LockKeeper* m_lock;
    LockPage* m_lockPage;
    QWidget* m_covered = nullptr; ///< what the lock hides
    TrayIcon* m_tray;
    QuietNotice* m_notice;
    bool m_isEnding = false;
};

} // namespace Quillary
