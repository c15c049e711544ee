// A bank of full size, for as long as the real ones are smaller.
//
// In this program WREN's banks are not the ones compiled from data/banks: they hold FALCO's rows
// over and over, so that their texts are as long as real ones.
#pragma once

namespace practice::bench {

inline constexpr int full_size = 355;
/// The exam whose full bank has that many rows.
inline constexpr const char* full_size_exam = "46007";

}  // namespace practice::bench
