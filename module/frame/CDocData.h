#pragma once

/// What the frame keeps for one document. It has no fields: the module keeps nothing between calls,
/// and the record is where that would stand.
struct CDocData {};
