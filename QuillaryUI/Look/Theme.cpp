#include "QuillaryUI/Look/Theme.h"

#include "QuillaryUI/Look/TintedIcon.h"

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

static void initializeResources()
{
    Q_INIT_RESOURCE(look); // a macro that wants to stand outside of namespaces
}

namespace Quillary::Theme {

namespace {

struct Colors
{
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb desk;
    QRgb line;
    QRgb text;
    QRgb quiet;
};

constexpr Colors lightColors{0xfff6f6f5, 0xffffffff, 0xfffafaf9, 0xffe3e3e0, 0xffd5d5d2, 0xff1d1d1f, 0xff66666a};
constexpr Colors darkColors{0xff1f2022, 0xff27282b, 0xff2b2c2f, 0xff151617, 0xff3b3c40, 0xffededed, 0xffa8a9ad};

/// Fusion draws the edges of fields and boxes in the window's colour, a good deal darker: on dark ground nobody sees them.
/// What they are drawn from there instead leaves them a contrast of 3:1.
constexpr QRgb darkEdge = 0xffa7a8ae;

constexpr double leastContrast = 4.5;

double channel(int value)
{
    const double part = value / 255.0;
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * channel(color.red()) + 0.7152 * channel(color.green()) + 0.0722 * channel(color.blue());
}

double contrast(const QColor& left, const QColor& right)
{
    const auto [darker, lighter] = std::minmax({luminance(left), luminance(right)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// White letters stand on it.
QColor legible(QColor accent)
{
    while (contrast(accent, Qt::white) < leastContrast && accent.value() > 0) {
        accent = accent.darker(110);
    }
    return accent;
}

QPalette palette(const Colors& colors, const QColor& accent)
{
    QPalette palette;
    palette.setColor(QPalette::Window, colors.window);
    palette.setColor(QPalette::WindowText, colors.text);
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, colors.alternate);
    palette.setColor(QPalette::Text, colors.text);
    palette.setColor(QPalette::Button, colors.base);
    palette.setColor(QPalette::ButtonText, colors.text);
    palette.setColor(QPalette::BrightText, colors.text);
    palette.setColor(QPalette::ToolTipBase, colors.base);
    palette.setColor(QPalette::ToolTipText, colors.text);
    palette.setColor(QPalette::PlaceholderText, colors.quiet);
    palette.setColor(QPalette::Mid, colors.desk);
    palette.setColor(QPalette::Midlight, colors.line);
    palette.setColor(QPalette::Dark, colors.line);
    palette.setColor(QPalette::Light, colors.base);
    palette.setColor(QPalette::Shadow, colors.desk);
    palette.setColor(QPalette::Highlight, legible(accent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, luminance(colors.base) < 0.5 ? accent.lighter(160) : legible(accent));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colors.quiet);
    }
    return palette;
}

/// Those that change with the scheme and are set on single widgets: light, dark.
constexpr std::array<std::pair<QRgb, QRgb>, 6> tints{{
    {lightColors.quiet, darkColors.quiet},
    {lightColors.text, darkColors.text},
    {0xff1f5fbf, 0xff86b4ff}, // sent
    {0xff8f5500, 0xfff0b35a}, // partly paid
    {0xff1b7338, 0xff7ad196}, // paid
    {0xffb92323, 0xffff8f85}, // wrong
}};

QColor counterpart(const QColor& color, Scheme scheme)
{
    for (const auto& [light, dark] : tints) {
        if (color.rgb() == light || color.rgb() == dark) {
            return {scheme == Scheme::dark ? dark : light};
        }
    }
    return color;
}

constexpr const char* tintProperty = "quillaryTint";

template <class Option>
Option withEdge(const Option& option)
{
    Option edged = option;
    if (scheme() == Scheme::dark) {
        edged.palette.setColor(QPalette::Window, darkEdge);
    }
    return edged;
}

/// Fusion, without its small movements where they are not wanted, and with our icons where every window has some: the
/// desktop's would be looked for in its themes, which takes longer than the window.
class Style final : public QProxyStyle
{
public:
    explicit Style(bool isStill)
        : QProxyStyle(QStringLiteral("Fusion"))
        , m_isStill(isStill)
    {
    }

    int styleHint(StyleHint hint,
                  const QStyleOption* option,
                  const QWidget* widget,
                  QStyleHintReturn* answer) const override
    {
        return m_isStill && hint == SH_Widget_Animation_Duration ? 0
                                                                 : QProxyStyle::styleHint(hint, option, widget, answer);
    }

    void drawPrimitive(PrimitiveElement element,
                       const QStyleOption* option,
                       QPainter* painter,
                       const QWidget* widget) const override
    {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (frame != nullptr && (element == PE_FrameLineEdit || element == PE_Frame)) {
            const auto edged = withEdge(*frame);
            QProxyStyle::drawPrimitive(element, &edged, painter, widget);
        } else if (button != nullptr && (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)) {
            const auto edged = withEdge(*button);
            QProxyStyle::drawPrimitive(element, &edged, painter, widget);
        } else {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }

    void drawComplexControl(ComplexControl control,
                            const QStyleOptionComplex* option,
                            QPainter* painter,
                            const QWidget* widget) const override
    {
        if (const auto* numbers = qstyleoption_cast<const QStyleOptionSpinBox*>(option)) {
            const auto edged = withEdge(*numbers);
            QProxyStyle::drawComplexControl(control, &edged, painter, widget);
        } else {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
        }
    }

    [[nodiscard]] QIcon
    standardIcon(StandardPixmap kind, const QStyleOption* option, const QWidget* widget) const override
    {
        switch (kind) {
        case SP_ToolBarHorizontalExtensionButton:
            return icon(QStringLiteral("beyond"));
        case SP_ToolBarVerticalExtensionButton:
            return icon(QStringLiteral("down"));
        case SP_LineEditClearButton:
            return icon(QStringLiteral("clear"));
        default:
            return QProxyStyle::standardIcon(kind, option, widget);
        }
    }

private:
    bool m_isStill;
};

Colors colors(Scheme scheme, bool highContrast)
{
    Colors result = scheme == Scheme::dark ? darkColors : lightColors;
    if (highContrast) {
        result.text = scheme == Scheme::dark ? 0xffffffff : 0xff000000;
        result.quiet = scheme == Scheme::dark ? 0xffdcdcdc : 0xff3a3a3c;
        result.line = scheme == Scheme::dark ? 0xffa8a9ad : 0xff66666a;
    }
    return result;
}

} // namespace

Scheme schemeOfDesktop(const QApplication& application)
{
    return application.palette().color(QPalette::Window).lightness() < 128 ? Scheme::dark : Scheme::light;
}

void apply(QApplication& application, Scheme scheme, const QColor& accent, const Needs& needs)
{
    initializeResources();
    QApplication::setStyle(new Style(needs.lessMotion));
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the application owns its style
    QApplication::setEffectEnabled(Qt::UI_General, !needs.lessMotion);
    QApplication::setPalette(palette(colors(scheme, needs.highContrast), accent));
    application.setStyleSheet(QStringLiteral(
        "QToolTip { border: 1px solid palette(midlight); padding: 4px; }"
        "QHeaderView::section { background: palette(window); color: palette(placeholder-text); border: none;"
        " border-bottom: 1px solid palette(midlight); padding: 6px 8px; }"
        "QTableCornerButton::section { background: palette(window); border: none;"
        " border-bottom: 1px solid palette(midlight); }"
        "QTableView { border: none; gridline-color: transparent; selection-background-color: palette(highlight); }"
        "QListView#sidebar { border: none; background: palette(window); padding: 8px; outline: none; }"
        "QListView#sidebar::item { border-radius: 6px; padding: 6px 8px; }"
        "QListView#sidebar::item:selected { background: palette(highlight); color: palette(highlighted-text); }"
        "QTabBar::tab { border: none; border-radius: 6px; padding: 6px 12px; margin: 8px 0 0 8px; }"
        "QTabBar::tab:selected { background: palette(midlight); }"
        "QTabBar::tab:focus { border: 1px solid palette(highlight); }"
        "QPushButton { border: 1px solid palette(midlight); border-radius: 6px; padding: 6px 14px;"
        " background: palette(base); }"
        "QPushButton:default { background: palette(highlight); color: palette(highlighted-text); border: none; }"
        "QPushButton:hover { border-color: palette(highlight); }"
        "QPushButton:focus { border: 1px solid palette(highlight); }"
        "QPushButton:default:focus { border: 2px solid palette(window-text); padding: 4px 12px; }"
        "QPushButton::menu-indicator { subcontrol-origin: padding; subcontrol-position: center right; right: 6px; }"
        "QPushButton:disabled, QPushButton:default:disabled { background: palette(base); color: "
        "palette(placeholder-text); }"
        "#designPicker QToolButton { border: 1px solid transparent; border-radius: 6px; padding: 4px 0; }"
        "#designPicker QToolButton:hover { background: palette(midlight); }"
        "#designPicker QToolButton:checked { background: palette(midlight); border-color: palette(highlight); }"
        "#designPicker QToolButton:focus { border: 2px solid palette(highlight); padding: 3px 0; }"
        "QToolButton#moreActions::menu-indicator { image: none; }" // its three dots say as much
        "QSplitter::handle { background: palette(midlight); }"));
    for (QWidget* widget : QApplication::allWidgets()) {
        if (const QVariant color = widget->property(tintProperty); color.isValid()) {
            tint(*widget, counterpart(color.value<QColor>(), scheme));
        }
    }
}

Scheme scheme()
{
    return QApplication::palette().color(QPalette::Base).lightness() < 128 ? Scheme::dark : Scheme::light;
}

QColor statusColor(DisplayStatus status)
{
    const bool isDark = scheme() == Scheme::dark;
    switch (status) {
    case DisplayStatus::draft:
    case DisplayStatus::declined:
    case DisplayStatus::expired:
        return QColor(isDark ? 0xffa8a9ad : 0xff66666a);
    case DisplayStatus::sent:
        return QColor(isDark ? 0xff86b4ff : 0xff1f5fbf);
    case DisplayStatus::partlyPaid:
        return QColor(isDark ? 0xfff0b35a : 0xff8f5500);
    case DisplayStatus::overdue:
        return errorColor();
    case DisplayStatus::paid:
    case DisplayStatus::accepted:
        return QColor(isDark ? 0xff7ad196 : 0xff1b7338);
    }
    return {};
}

QColor errorColor()
{
    return QColor(scheme() == Scheme::dark ? 0xffff8f85 : 0xffb92323);
}

void tint(QWidget& label, const QColor& color)
{
    label.setProperty(tintProperty, color);
    label.setStyleSheet(QStringLiteral("color: %1").arg(color.name()));
}

QIcon icon(const QString& name)
{
    QFile file(QStringLiteral(":/quillary/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QIcon(new TintedIcon(file.readAll()));
}

} // namespace Quillary::Theme
