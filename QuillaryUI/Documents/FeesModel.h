#pragma once

#include "QuillaryUI/Documents/ChargesModel.h"

namespace Quillary {

/// The fees of a draft: a name, an amount and a tax rate each.
class FeesModel final : public ChargesModel
{
    Q_OBJECT

public:
    explicit FeesModel(DraftDesk& desk, QObject* parent = nullptr);

private:
    [[nodiscard]] std::vector<Charge> read(const Document& draft) const override;
    [[nodiscard]] std::optional<JSON> argument(int column, const QString& typed) const override;
    [[nodiscard]] QString hint(const QString& typed) const override;
};

} // namespace Quillary
