#pragma once

#include <QTableView>

namespace Quillary {

class ChargesModel;

/// A small table of discounts or fees, as high as its rows. Delete removes one; Alt and the arrows move it.
class ChargesTable : public QTableView
{
    Q_OBJECT

public:
    explicit ChargesTable(ChargesModel& model, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void fitHeight();
    void moveChosen(int by);

    ChargesModel& m_charges;
};

} // namespace Quillary
