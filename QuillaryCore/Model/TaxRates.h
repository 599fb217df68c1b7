#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace Quillary {

class Context;
struct TaxRate;

/// The tax rates that the user can pick.
namespace TaxRates {

/// Ascending by `sortIndex`; equal indexes in the order they were made.
[[nodiscard]] std::vector<const TaxRate*> all(Context& context);

/// The rate of new lines. Null: none was chosen.
[[nodiscard]] const TaxRate* defaultRate(Context& context);

/// Makes one rate the default and every other rate none.
void makeDefault(Context& context, const TaxRate& rate);

/// Adds a rate at the end of the order.
TaxRate& append(Context& context, std::string_view name, std::int32_t basisPoints);

/// Removes a rate. Lines keep their own copy of it; a catalog item that used it falls back to the default rate.
void remove(Context& context, const TaxRate& rate);

} // namespace TaxRates

} // namespace Quillary
