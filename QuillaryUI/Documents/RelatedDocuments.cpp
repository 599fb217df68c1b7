#include "QuillaryUI/Documents/RelatedDocuments.h"

#include "QuillaryCore/Billing/DisplayStatus.h"
#include "QuillaryCore/Documents/DocumentActions.h"
#include "QuillaryCore/Documents/DocumentName.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentContents.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/StatusText.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QStringList>

namespace Quillary {

RelatedDocuments::RelatedDocuments(const LibraryAccess& library, QWidget* parent)
    : QLabel(parent)
    , m_library(library)
{
    setObjectName(QStringLiteral("relatedDocuments"));
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setWordWrap(true);
    connect(
        this, &QLabel::linkActivated, this, [this](const QString& key) { Q_EMIT wantedDocument(key.toLongLong()); });
}

QString RelatedDocuments::link(const Document& document) const
{
    const DisplayStatus shown = displayStatus(document, m_library.today(), m_library.formats().calendar());
    const bool isTemplate = kind(document) == DocumentKind::recurring;
    const QString name = isTemplate && !document.title.empty() ? Quillary::text(document.title)
                                                               : CoreText::sentence(documentName(document));
    const QString words = isTemplate ? name : tr("%1 (%2)").arg(name, StatusText::word(shown, kind(document)));
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(document.ref.key()).arg(words.toHtmlEscaped());
}

void RelatedDocuments::fill(const Document& document)
{
    Context& context = m_library.context();
    QStringList parts;
    const Document* source = document.sourceDocumentID ? context.find<Document>(*document.sourceDocumentID) : nullptr;
    if (source != nullptr) {
        parts.push_back(
            (kind(document) == DocumentKind::creditNote ? tr("Credits %1") : tr("From %1")).arg(link(*source)));
    }
    QStringList made;
    for (const Document* derived : derivedDocuments(context, document)) {
        made.push_back(link(*derived));
    }
    if (!made.empty()) {
        parts.push_back(tr("Led to %1").arg(made.join(QStringLiteral(", "))));
    }
    setText(parts.join(QStringLiteral(" &nbsp;·&nbsp; ")));
    setVisible(!parts.empty());
}

} // namespace Quillary
