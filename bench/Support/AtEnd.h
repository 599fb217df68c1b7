#pragma once

#include <functional>

namespace Quillary {

/// Done when all benchmarks are, before the program's static objects go.
void atEnd(std::function<void()> work);

} // namespace Quillary
