#pragma once

namespace Quillary {

class SampleLibrary;

/// Gives a made-up business the year and more that it has been in business: invoices to its clients, month by month,
/// nearly all of them paid. What charts and long lists are looked at with.
void addHistory(SampleLibrary& samples);

} // namespace Quillary
