#pragma once

#include <QList>
#include <QStringList>

class QLabel;
class QTableWidget;
class QWidget;

namespace Quillary {

/// A short table of texts, to be read and chosen from.
namespace PlainTable {

/// `widest` is the column that takes what room is left.
[[nodiscard]] QTableWidget* make(const QStringList& titles, int widest, QWidget* parent);
void fill(QTableWidget& table, const QList<QStringList>& rows);

/// The words above one.
[[nodiscard]] QLabel* heading(const QString& title, QWidget* parent);

} // namespace PlainTable

} // namespace Quillary
