#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace tessarin {

// What pairing an opening and a closing tag does to a text, found as reading a story has
// always found it: take the first opening and the first closing tag of the text; while both
// exist and the opening one comes first, the text between them takes the style, both tags
// are deleted (the closing one first) and the search starts again from the start. A closing
// tag ahead of the first opening tag stops it and stays, as do all tags after it. Deleting a
// pair can join characters on either side into a new tag, which later rounds find.
struct TagPairing {
    std::vector<bool> removed;  // by position: a character of a paired tag; empty for no pair
    // For each pair, [first, end) in positions of the text: the characters in it that are not
    // removed are the ones that take the style.
    std::vector<std::pair<std::size_t, std::size_t>> styled;
};

// The tags must begin with "<" and hold no other "<", and only the closing one may begin with
// "</", so that no two tags in a text overlap. The cost is linear in the text, plus a few
// steps of logarithmic cost in the number of pairs for each pair.
TagPairing PairTags(std::u16string_view text, std::u16string_view opening,
                    std::u16string_view closing);

}  // namespace tessarin
