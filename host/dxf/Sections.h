#pragma once

namespace host_dxf {

class LoadContext;

// One reader for each section. It finds the context's reader behind the section's name, adds what
// the section holds to the database and to the file's outline, and leaves the reader at the group 0
// that ends the section. Damage throws DxfFailure.

void loadHeader(LoadContext& context);
void loadTables(LoadContext& context);
void loadBlocks(LoadContext& context);
void loadEntities(LoadContext& context);
void loadObjects(LoadContext& context);

/// A section whose records become nothing in the database: classes, previews, what later versions
/// add. Its bytes stay in the outline.
void passOverSection(LoadContext& context);

} // namespace host_dxf
