#pragma once

namespace quillon::exact {

inline constexpr unsigned kJapanesePage = 932;

/// The code pages of Windows with up to two bytes a character.
bool isTwoBytePage(unsigned page);

/// The character with a code from 128 to 255 in a code page of Windows with one byte a character; 0
/// where it has none, and in pages that are not known.
char32_t characterOf(unsigned page, unsigned code);

}  // namespace quillon::exact
