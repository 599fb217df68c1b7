#pragma once

#include <QTableView>

namespace Quillary {

class FeesModel;

/// A small table of fees, as high as its rows. Delete removes one.
class FeesTable : public QTableView
{
    Q_OBJECT

public:
    explicit FeesTable(FeesModel& model, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void fitHeight();

    FeesModel& m_fees;
};

} // namespace Quillary
