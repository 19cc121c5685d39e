// The JSON Schemas of the documents, by which editors of text complete keys while one types.
#pragma once

#include <filesystem>

namespace plxclip {

// Puts the key "$schema" in front of both documents of a clip that was just saved: its value is the URL of
// the schema that is installed with this program. Does nothing if none is installed. False if a document
// cannot be written.
bool referToSchemas(const std::filesystem::path& clipFile);

} // namespace plxclip
