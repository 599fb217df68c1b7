#pragma once

// What nearly every source of the core includes, parsed once. A source still includes what it uses: clang-tidy, the
// header check and the fuzz build compile without this file.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>
