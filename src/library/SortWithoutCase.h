#pragma once

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/Text.h"

namespace zefta {

/// Sorts items, which have a `name`, by the bytes of the lower-case UTF-8 text that `textOf` gives for each;
/// items of equal texts by the bytes of their names. No order of a language: it is the same on every machine.
template <class Item, class TextOf>
void SortWithoutCase(std::vector<Item>& items, TextOf textOf) {
    std::vector<std::pair<std::string, Item>> keyed;
    keyed.reserve(items.size());
    for (Item& item : items) {
        std::string key = ToLower(textOf(item));
        keyed.emplace_back(std::move(key), std::move(item));
    }
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
        return std::tie(a.first, a.second.name) < std::tie(b.first, b.second.name);
    });
    std::transform(keyed.begin(), keyed.end(), items.begin(),
                   [](auto& pair) { return std::move(pair.second); });
}

}  // namespace zefta
