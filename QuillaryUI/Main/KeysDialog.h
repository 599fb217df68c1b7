#pragma once

#include <QDialog>
#include <QList>

class QAction;

namespace Quillary {

/// What the keys do: those of the actions there are at this moment, and those of lists and lines.
class KeysDialog : public QDialog
{
    Q_OBJECT

public:
    KeysDialog(const QList<QAction*>& actions, QWidget* parent);
};

} // namespace Quillary
