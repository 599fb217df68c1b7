#pragma once

#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryUI/Paper/PagePress.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <cstddef>
#include <functional>
#include <optional>

class QToolButton;

namespace Quillary {

/// The designs side by side, each as a small picture of the same page: the printer's own, made anew a moment after the
/// page has changed. The arrow keys go from one to the next.
class DesignPicker : public QWidget
{
    Q_OBJECT

public:
    /// The page in a design. No value: there is none to show.
    using Source = std::function<std::optional<PageJob>(TemplateDesign)>;

    DesignPicker(PagePress& press, Source source, QWidget* parent = nullptr);

    [[nodiscard]] TemplateDesign design() const;

    /// The page has changed.
    void refresh();
    /// Whether the pictures show it.
    [[nodiscard]] bool isReady() const { return m_next == count && !m_isPrinting && !m_pause.isActive(); }

Q_SIGNALS:
    void chosen();

protected:
    void showEvent(QShowEvent* event) override;

private:
    static constexpr std::size_t count = 5;

    void printNext();
    void show(std::size_t place, const PrintResult& result);

    PagePress& m_press;
    Source m_source;
    std::array<QToolButton*, count> m_buttons{};
    std::size_t m_next = count; ///< to be printed; all are when it is `count`
    bool m_isPrinting = false;
    QTimer m_pause;
};

} // namespace Quillary
