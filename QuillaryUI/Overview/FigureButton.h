#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QString>

namespace Quillary {

/// A figure with its name and a line about it, which leads to what it is made of.
class FigureButton : public QAbstractButton
{
    Q_OBJECT

public:
    FigureButton(const QString& name, const QString& figure, const QString& detail, QWidget* parent = nullptr);

    /// Of the figure; the text's own without.
    void setFigureColor(const QColor& color);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QFont figureFont() const;

    QString m_figure;
    QString m_detail;
    QColor m_color;
};

} // namespace Quillary
