// The file extension of an effect's presets: each effect has a file type of its own.
#pragma once

namespace brushworks {

/// What `extension` must hold: "fxpbwka" and its end.
inline constexpr int kExtensionBytes = 8;

/// Writes the extension, without a point: "fxp", the library's suffix ("bwk" for this library,
/// "unk" for others), and the effect's letter, 'a' plus its index. An index past 'z' has no letter,
/// so that such effects share a type of file but no effect with a letter has theirs. A null
/// `libraryName` gives "prs"; a null `extension` is left alone. [any thread]
void GetEffectExtension(const char* libraryName, unsigned int effect, char* extension);

}  // namespace brushworks
