#pragma once

namespace pipenet::style {

// Colours that stay apart for the common kinds of colour blindness; path and network differ in
// lightness and width as well.
inline constexpr auto kNetwork = "#0072B2";
inline constexpr auto kPath = "#D55E00";
inline constexpr auto kLowered = "#CC3377";
inline constexpr auto kTankFill = "#D6EFE6";
inline constexpr auto kTankLine = "#00785A";
inline constexpr auto kContext = "#D3D7DD";
inline constexpr auto kInk = "#1F2933";
inline constexpr auto kFaint = "#6B7682";
inline constexpr auto kRule = "#E3E6EA";

inline constexpr auto kFonts = "'Noto Sans','DejaVu Sans','Noto Sans CJK SC','Source Han Sans "
                               "SC','Microsoft YaHei',sans-serif";

// Sizes on the page, pixels.
inline constexpr double kNumberSize = 12.0;
inline constexpr double kDiameterSize = 10.0;
inline constexpr double kLeastNodeRadius = 4.5;
inline constexpr double kMargin = 28.0;

} // namespace pipenet::style
