#pragma once

#include "QuillaryCore/Foundation/Locale.h"

#include <string>
#include <string_view>

namespace Quillary {

class Context;
struct Business;

/// The library's business. Null: it has none yet.
[[nodiscard]] const Business* business(Context& context);

/// Makes the business of a new library, with what is usual in the locale's country (currency, tax, paper), the locale's
/// language where documents can be printed in it, and tax rates. Its name and address stay empty.
Business& makeFirstBusiness(Context& context, const Locale& locale);

/// Brings the currency, the word for tax, the tax rates and the paper of a country to a business that has used no others
/// yet. The language stays. Where a country's taxes aren't known, the only rate is 0.
void moveToCountry(Context& context, Business& business, std::string_view countryCode);

/// Sets the country of a business. True when `moveToCountry` followed: as long as nothing has been billed, the country is
/// the best guess at currency, tax and paper.
bool setCountry(Context& context, Business& business, const std::string& countryCode);

} // namespace Quillary
