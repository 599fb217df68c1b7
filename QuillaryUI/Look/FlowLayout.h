#pragma once

#include <QLayout>
#include <QList>

#include <memory>
#include <vector>

namespace Quillary {

/// Widgets one behind the other, in as many lines as the width asks for.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    explicit FlowLayout(QWidget* parent = nullptr)
        : QLayout(parent)
    {
    }

    void addItem(QLayoutItem* item) override { m_items.emplace_back(item); }
    [[nodiscard]] int count() const override { return int(m_items.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override { return placedHeight({0, 0, width, 0}, false); }
    [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rectangle) override;

private:
    /// The height that it takes within a width.
    [[nodiscard]] int placedHeight(const QRect& rectangle, bool isReal) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace Quillary
