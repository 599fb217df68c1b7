#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace Quillary {

/// Calls `visit(first, last)` for each run of keys that lie close together, so that one query between two keys reads what
/// would otherwise be asked for key by key. `keys` ascend. Within a run the next key is at most `reach` away: reading
/// over the rows between must cost less than another query, and what is read stays in proportion to what is wanted.
template <class Visit>
void forEachRun(std::span<const std::int64_t> keys, std::int64_t reach, const Visit& visit)
{
    std::size_t begin = 0;
    for (std::size_t index = 1; index <= keys.size(); ++index) {
        if (index == keys.size() || keys[index] - keys[index - 1] > reach) {
            visit(keys[begin], keys[index - 1]);
            begin = index;
        }
    }
}

} // namespace Quillary
