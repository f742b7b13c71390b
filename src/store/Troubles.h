// What a person reads when the store refuses: one table from the number of an error to its box.
#pragma once

#include "platform/dao/DaoError.h"
#include "platform/ports/Prompt.h"

#include <exception>
#include <string>
#include <vector>

namespace tvx {

/// What was being done when the store refused.
enum class Occasion {
    Opening,            // the database
    ReadingDepartments, // before a department is shown or written
    BeginningSave,      // of a week, before its transaction
    Saving,             // inside a transaction
    Working,            // anything else
};

enum class WayOn { TryAgain, EndRun };

/// A box, and what comes after it.
struct Trouble {
    std::string text;
    std::string title;
    int style = 0;
    bool beep = false;
    WayOn wayOn = WayOn::TryAgain;
    std::string detail = {}; // said beyond the text, apart from it
};

/// What a person reads of a number of the engine. The engine's own words are never shown.
struct EngineSentence {
    int number;
    const char* text;
};
const std::vector<EngineSentence>& EngineSentences();
/// The sentence of an error's number, and what it is about below. A number without a sentence has that of
/// 3000.
std::string PlainText(const dao::DaoError& error);

/// The line of the table for an error number. `text` is what is told of the error, `what` that which could
/// not be saved: "schedule".
Trouble TroubleOf(Occasion occasion, int number, const std::string& text, const std::string& what = "");
/// The same for an error that was caught: a DaoError, a FileError, or any other, whose number is 0.
Trouble TroubleOf(Occasion occasion, const std::exception& error, const std::string& what = "");

/// Shows the box of a trouble, with the usual pointer. Returns the way on.
WayOn TellTrouble(Prompt& prompt, const Trouble& trouble);

} // namespace tvx
