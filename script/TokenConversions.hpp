#pragma once
// Keyword tokens of scripts and data files turned into the numbers that resources and
// components store. None of them fails: an unknown word gets a default so that a
// script with a misspelt keyword still runs.
namespace vz {

// Blend mode: "off" 0, "glenz25" 8, "glenz50" 16, "glenz75" 24, "normal" 32, "add" 33,
// "sub" 34, "addnosat" 35. Any other token is read as a decimal number (so 288, a
// sprite variant, can be written); a word that is not a number gives 32 ("normal").
int token2rendu(const char* token);

// Interpolation kind: "square" 0, "linear" 1, "spline" 2, "cosinus" 3; unknown: logged, 1.
int token2interpolation(const char* token);

// Material id: "texture32bpp" 0, "textureAnysize32bpp" 1, "texture8bpp" 2,
// "gouraud8bpp" 3, "flatColor" 4, "flatPattern" 5, "gouraud32bpp" 6,
// "dualTexture8bpp" 8 (7 has no keyword); unknown: logged, 4.
int token2materialId(const char* token);

// "true" or "false"; anything else: logged, false.
bool token2bool(const char* token);

}  // namespace vz
