#pragma once

/// Type codes of result buffers that are not group codes.
inline constexpr int RTNONE = 5000;
inline constexpr int RTREAL = 5001;
inline constexpr int RTPOINT = 5002;
inline constexpr int RTSHORT = 5003;
inline constexpr int RTANG = 5004;
inline constexpr int RTSTR = 5005;
inline constexpr int RTENAME = 5006;
inline constexpr int RTPICKS = 5007;
inline constexpr int RTORINT = 5008;
inline constexpr int RT3DPOINT = 5009;
inline constexpr int RTLONG = 5010;
inline constexpr int RTVOID = 5014;
inline constexpr int RTLB = 5016;
inline constexpr int RTLE = 5017;
inline constexpr int RTDOTE = 5018;
inline constexpr int RTNIL = 5019;
/// Stands for group 0 in acutBuildList, where a plain 0 ends the list.
inline constexpr int RTDXF0 = 5020;
inline constexpr int RTT = 5021;
inline constexpr int RTRESBUF = 5023;
inline constexpr int RTMODELESS = 5027;

/// Result codes of the procedural interface.
inline constexpr int RTNORM = 5100;
inline constexpr int RTERROR = -5001;
inline constexpr int RTCAN = -5002;
inline constexpr int RTREJ = -5003;
inline constexpr int RTFAIL = -5004;
inline constexpr int RTKWORD = -5005;
inline constexpr int RTINPUTTRUNCATED = -5008;
