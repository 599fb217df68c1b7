#include "QuillaryUI/Look/Sentences/SentenceTemplate.h"

#include <QRegularExpression>

namespace Quillary::CoreText {

SentenceTemplate::SentenceTemplate(const SentencePattern& pattern)
    : m_source(QString::fromUtf8(pattern.english))
    , m_values(pattern.values)
{
    static const QRegularExpression place(QStringLiteral("%([1-9])"));
    qsizetype end = 0;
    for (auto match = place.globalMatch(m_source); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        m_pieces.push_back(m_source.mid(end, found.capturedStart() - end));
        m_places.push_back(found.capturedView(1).toInt());
        end = found.capturedEnd();
    }
    m_pieces.push_back(m_source.mid(end));
    for (const QString& piece : m_pieces) {
        m_fixedLength += piece.size();
    }
}

std::optional<QStringList> SentenceTemplate::match(const QString& sentence) const
{
    if (sentence.size() < m_fixedLength + m_places.size() || !sentence.startsWith(m_pieces.first()) ||
        !sentence.endsWith(m_pieces.last())) {
        return std::nullopt;
    }
    if (m_places.isEmpty()) {
        return sentence == m_source ? std::optional(QStringList()) : std::nullopt;
    }
    QStringList found(m_places.size());
    qsizetype start = m_pieces.first().size();
    for (qsizetype i = 0; i < m_places.size(); ++i) {
        const bool isLast = i + 1 == m_places.size();
        const qsizetype end =
            isLast ? sentence.size() - m_pieces.last().size() : sentence.indexOf(m_pieces[i + 1], start + 1);
        if (end <= start) {
            return std::nullopt;
        }
        found[m_places[i] - 1] = sentence.mid(start, end - start);
        start = end + m_pieces[i + 1].size();
    }
    return found;
}

} // namespace Quillary::CoreText
