#pragma once

/// Texts that import puts on entities and export reads back. The search knows none of them: a
/// drawing without them is as good a drawing.
namespace pipenet::own_texts {

inline constexpr wchar_t kLinkName[] = L"管段编号"; ///< on pipes: the name of the pipe
/// On pipes: "L/D", the pipe's length in metres and the drawn length in metres that it was given
/// for. Of no account once the pipe measures something else than D.
inline constexpr wchar_t kLinkLength[] = L"管段长度";
inline constexpr wchar_t kDevice[] = L"管件"; ///< on pipes: `kValve` or `kPump`
inline constexpr wchar_t kValve[] = L"阀门";
inline constexpr wchar_t kPump[] = L"水泵";
inline constexpr wchar_t kBottom[] = L"井底标高"; ///< on wells and tanks, metres
inline constexpr wchar_t kGround[] = L"地面标高"; ///< on wells and tanks, metres
inline constexpr wchar_t kWaterLevel[] = L"水位"; ///< on tanks: a fixed water level, metres

} // namespace pipenet::own_texts
