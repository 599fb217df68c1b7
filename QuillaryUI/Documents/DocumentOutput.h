#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Paper/PaperDesk.h"

#include <QObject>
#include <QWidget>

namespace Quillary {

struct Document;

/// Takes a document out of the program: as a PDF, on paper, into the mail program.
class DocumentOutput : public QObject
{
    Q_OBJECT

public:
    /// Dialogs and sheets stand above `host`, which owns this.
    DocumentOutput(LibraryAccess& library, QWidget& host);

    /// Into the downloads, under the name that the settings give it.
    void savePDF(const Document& document);
    /// Asks for the printer first. The page is made anew then, so that what lies on the paper is what the library holds.
    void print(const Document& document);
    void email(const Document& document);

    /// Above what a sheet about the document in `pane` stands: the pane, or the section around it where the pane beside a
    /// wide list is too narrow for it.
    [[nodiscard]] static QWidget& sheetHost(QWidget& pane);

Q_SIGNALS:
    void told(const QString& sentence);
    void failed(const QString& sentence);

private:
    [[nodiscard]] PageJob page(const Document& document) const;
    [[nodiscard]] PaperDesk::Asker asker();

    LibraryAccess& m_library;
    QWidget& m_host;
};

} // namespace Quillary
