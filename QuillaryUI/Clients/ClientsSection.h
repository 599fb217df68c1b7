#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Library/Section.h"

#include <cstdint>
#include <functional>
#include <utility>

class QLabel;
class QLineEdit;
class QStackedWidget;
class QTableView;

namespace Quillary {

class ClientDetails;
class ClientListModel;

/// All clients with what they owe, and the chosen one beside them.
class ClientsSection : public Section
{
    Q_OBJECT

public:
    /// Asks for a file; empty: none was chosen.
    using FileChooser = std::function<QString(QWidget* parent)>;

    explicit ClientsSection(LibraryAccess& library, QWidget* parent = nullptr);

    /// Shows a client, also when the search hides them.
    void showClient(std::int64_t key);

    void makeNew() override;
    void find() override;
    void flush() override;
    void refreshDay() override;

    void setFileChooser(FileChooser chooser) { m_chooseFile = std::move(chooser); }

    /// Asks for a client list and shows what would become of it.
    void importFile();

private:
    void build();
    QWidget* buildBar();
    QWidget* buildEmpty();
    void choose();
    void restore();

    LibraryAccess& m_library;
    ClientListModel* m_model;
    QTableView* m_table;
    QLineEdit* m_search;
    QStackedWidget* m_list;
    QLabel* m_footer;
    ClientDetails* m_details;
    FileChooser m_chooseFile;
    std::int64_t m_chosen = 0;
    bool m_isRestoring = false;
};

} // namespace Quillary
