// Answers that are looked for only once.
#pragma once

namespace qrtVistrelClasses4 {

/// The value of `key` in the map `answers`. If it has none, `find()` makes one, which is kept there unless
/// it throws.
template <class Map, class Find>
const typename Map::mapped_type& Remembered(Map& answers, const typename Map::key_type& key,
                                            const Find& find) {
    const auto known = answers.find(key);
    return known != answers.end() ? known->second : answers.emplace(key, find()).first->second;
}

} // namespace qrtVistrelClasses4
