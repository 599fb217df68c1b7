#pragma once

#include "QuillaryUI/Library/Section.h"

class QCheckBox;
class QLabel;

namespace Quillary {

/// How the program behaves on this desktop.
class ProgramPage : public Section
{
    Q_OBJECT

public:
    explicit ProgramPage(QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QCheckBox* m_tray;
    QLabel* m_noTray;
    QCheckBox* m_notices;
};

} // namespace Quillary
