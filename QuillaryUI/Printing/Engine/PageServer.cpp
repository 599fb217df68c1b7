#include "QuillaryUI/Printing/Engine/PageServer.h"

#include <QBuffer>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include <utility>

namespace Quillary {

void PageServer::registerScheme()
{
    if (!QWebEngineUrlScheme::schemeByName(scheme()).name().isEmpty()) {
        return; // by another printer
    }
    QWebEngineUrlScheme pages(scheme());
    pages.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    pages.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(pages);
}

QByteArray PageServer::scheme()
{
    return QByteArrayLiteral("quillary-page");
}

QUrl PageServer::serve(QByteArray html)
{
    m_html = std::move(html);
    m_address.setScheme(QString::fromLatin1(scheme()));
    m_address.setHost(QStringLiteral("page"));
    m_address.setPath(QStringLiteral("/%1").arg(++m_pages));
    return m_address;
}

void PageServer::clear()
{
    m_html.clear();
    m_address.clear();
}

void PageServer::requestStarted(QWebEngineUrlRequestJob* request)
{
    if (!serves(request->requestUrl())) {
        request->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* html = new QBuffer(request); // shares the bytes, lives as long as the request
    html->setData(m_html);
    html->open(QIODevice::ReadOnly);
    request->reply(QByteArrayLiteral("text/html;charset=utf-8"), html);
}

void RequestGuard::interceptRequest(QWebEngineUrlRequestInfo& request)
{
    request.block(request.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeMainFrame ||
                  !m_server.serves(request.requestUrl()));
}

} // namespace Quillary
