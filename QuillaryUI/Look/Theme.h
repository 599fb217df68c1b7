#pragma once

#include "QuillaryCore/Billing/DisplayStatus.h"

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;
class QWidget;

namespace Quillary {

/// The colours and icons of the windows. Every pair of text and ground keeps a contrast of at least 4.5:1 (WCAG 2.1).
namespace Theme {

enum class Scheme { light, dark };

/// What the desktop's palette says.
[[nodiscard]] Scheme schemeOfDesktop(const QApplication& application);

/// What a desktop may ask for besides its colours.
struct Needs
{
    bool highContrast = false; ///< stronger letters and lines
    bool lessMotion = false;   ///< nothing moves that needn't

    friend bool operator==(const Needs&, const Needs&) = default;
};

/// Sets palette and style. `accent` marks what is chosen; one that can't be read on the ground is moved until it can.
/// Widgets that are there already follow.
void apply(QApplication& application, Scheme scheme, const QColor& accent, const Needs& needs = {});

/// The scheme that was applied last, as the palette shows it.
[[nodiscard]] Scheme scheme();

/// The colour in which a status stands; the word beside it says the same.
[[nodiscard]] QColor statusColor(DisplayStatus status);

/// What went wrong, and what is warned of.
[[nodiscard]] QColor errorColor();

/// Gives a label's text a colour. Once the application's style sheet has dressed a widget, it outweighs the palette.
void tint(QWidget& label, const QColor& color);

/// An icon of our own by its name, such as "invoice", in the palette's text colour.
[[nodiscard]] QIcon icon(const QString& name);

} // namespace Theme

} // namespace Quillary
