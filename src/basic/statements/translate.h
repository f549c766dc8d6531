// The statements into code.
#pragma once

#include "basic/statements/statement.h"
#include "basic/translation.h"
#include "common/result.h"

namespace corvane::basic {

// Each writes the statement's code; one that fails may have written part of it.
common::Status Translate(Translation& translation, const EmptyStatement& statement);
common::Status Translate(Translation& translation, const UnknownStatement& statement);
common::Status Translate(Translation& translation, const Declaration& declaration);
common::Status Translate(Translation& translation, const SquareRoot& root);
common::Status Translate(Translation& translation, const Assignment& assignment);
common::Status Translate(Translation& translation, const Arithmetic& arithmetic);
common::Status Translate(Translation& translation, const Negation& negation);
common::Status Translate(Translation& translation, const BitLogic& logic);
common::Status Translate(Translation& translation, const While& statement);
common::Status Translate(Translation& translation, const Wend& statement);
common::Status Translate(Translation& translation, const If& statement);
common::Status Translate(Translation& translation, const Else& statement);
common::Status Translate(Translation& translation, const Endif& statement);
common::Status Translate(Translation& translation, const For& statement);
common::Status Translate(Translation& translation, const Next& statement);
common::Status Translate(Translation& translation, const Goto& statement);
common::Status Translate(Translation& translation, const Read& statement);
common::Status Translate(Translation& translation, const Write& statement);
common::Status Translate(Translation& translation, const WaitMs& wait);

}  // namespace corvane::basic
