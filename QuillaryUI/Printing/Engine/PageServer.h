#pragma once

#include <QByteArray>
#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>

namespace Quillary {

/// Hands the page that is being printed to the engine from memory, under an address of its own: the engine's way to
/// set a page as text ends at 2 MB.
class PageServer : public QWebEngineUrlSchemeHandler
{
public:
    /// Makes the scheme known. Once in a process, before its first profile, whoever makes that: a running engine no
    /// longer learns that the scheme's addresses have a host, takes every page for a site of its own and starts a
    /// renderer process for it, which triples the time of a page.
    static void registerScheme();

    /// The name of the scheme, as profiles want it.
    static QByteArray scheme();

    /// Serves `html` from now on and nothing else. The address is new each time, its host always the same one, so that
    /// the engine keeps the renderer process (a new one would triple the time of a page).
    QUrl serve(QByteArray html);

    /// Forgets the page.
    void clear();

    /// Whether this is the address of the page being served.
    [[nodiscard]] bool serves(const QUrl& address) const { return !m_address.isEmpty() && address == m_address; }

    void requestStarted(QWebEngineUrlRequestJob* request) override;

private:
    QByteArray m_html;
    QUrl m_address;
    quint64 m_pages = 0;
};

/// Refuses every request but that for the page itself. Data URLs never come here.
class RequestGuard : public QWebEngineUrlRequestInterceptor
{
public:
    explicit RequestGuard(const PageServer& server)
        : m_server(server)
    {
    }

    void interceptRequest(QWebEngineUrlRequestInfo& request) override;

private:
    const PageServer& m_server;
};

} // namespace Quillary
