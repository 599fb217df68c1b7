#pragma once

#include "QuillaryUI/Documents/ChargesModel.h"

namespace Quillary {

/// The discounts of a draft: a name, and a percentage or an amount each. Percentages are all taken of the lines' sum.
class DiscountsModel final : public ChargesModel
{
    Q_OBJECT

public:
    explicit DiscountsModel(DraftDesk& desk, QObject* parent = nullptr);

private:
    [[nodiscard]] std::vector<Charge> read(const Document& draft) const override;
    [[nodiscard]] std::optional<JSON> argument(int column, const QString& typed) const override;
    [[nodiscard]] QString hint(const QString& typed) const override;
};

} // namespace Quillary
