#pragma once

#include "QuillaryUI/Look/Sentences/Sentences.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>
#include <optional>

namespace Quillary::CoreText {

/// A pattern taken apart: it finds again what the core filled in.
class SentenceTemplate
{
public:
    explicit SentenceTemplate(const SentencePattern& pattern);

    [[nodiscard]] const QString& source() const { return m_source; }
    [[nodiscard]] Value value(std::size_t place) const { return m_values.at(place); }

    /// How much of it stands in every such sentence. Unit: UTF-16 units.
    [[nodiscard]] qsizetype fixedLength() const { return m_fixedLength; }

    /// What stands at %1, %2 …: each place takes as little as it can, and something at least. No value: the sentence is
    /// another one.
    [[nodiscard]] std::optional<QStringList> match(const QString& sentence) const;

private:
    QString m_source;
    QStringList m_pieces; ///< one more than places
    QList<int> m_places;  ///< the numbers of the places between them
    std::array<Value, mostPlaces> m_values;
    qsizetype m_fixedLength = 0;
};

} // namespace Quillary::CoreText
