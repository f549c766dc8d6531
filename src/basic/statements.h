// The statement forms. Each has a test for its words and a translation into code; a translation
// that returns a problem may have written part of its code.
#pragma once

#include "basic/source_lines.h"
#include "basic/translation.h"

namespace corvane::basic {

// Dim name As Bit | Byte | Word
bool IsDeclaration(const Words& words);
Problem TranslateDeclaration(Translation& translation, const Words& words);

// X = Sqr(Y)
bool IsSquareRoot(const Words& words);
Problem TranslateSquareRoot(Translation& translation, const Words& words);

// X = Y
bool IsAssignment(const Words& words);
Problem TranslateAssignment(Translation& translation, const Words& words);

// X = A + B, and the same with -, *, / and Mod
bool IsArithmetic(const Words& words);
Problem TranslateArithmetic(Translation& translation, const Words& words);

// X = Not Y
bool IsNegation(const Words& words);
Problem TranslateNegation(Translation& translation, const Words& words);

// X = A And B, and the same with Or, Xor, Nand, Nor and Nxor
bool IsBitLogic(const Words& words);
Problem TranslateBitLogic(Translation& translation, const Words& words);

// While CONDITION .. Wend
bool IsWhile(const Words& words);
Problem TranslateWhile(Translation& translation, const Words& words);
bool IsWend(const Words& words);
Problem TranslateWend(Translation& translation, const Words& words);

// If CONDITION Then .. Else .. Endif
bool IsIf(const Words& words);
Problem TranslateIf(Translation& translation, const Words& words);
bool IsElse(const Words& words);
Problem TranslateElse(Translation& translation, const Words& words);
bool IsEndif(const Words& words);
Problem TranslateEndif(Translation& translation, const Words& words);

// For V = A To B Step S .. Next V
bool IsFor(const Words& words);
Problem TranslateFor(Translation& translation, const Words& words);
bool IsNext(const Words& words);
Problem TranslateNext(Translation& translation, const Words& words);

// Goto label
bool IsGoto(const Words& words);
Problem TranslateGoto(Translation& translation, const Words& words);

// Read A, D and Write A, D
bool IsRead(const Words& words);
Problem TranslateRead(Translation& translation, const Words& words);
bool IsWrite(const Words& words);
Problem TranslateWrite(Translation& translation, const Words& words);

// WaitMs X
bool IsWaitMs(const Words& words);
Problem TranslateWaitMs(Translation& translation, const Words& words);

}  // namespace corvane::basic
