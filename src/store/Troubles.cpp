#include "store/Troubles.h"

#include "platform/files/FileError.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tvx {
namespace {

using namespace dao::error;

struct Line {
    Occasion occasion;
    std::vector<int> numbers; // none: every other
    Trouble trouble;          // in its text %n is the number, %t the text of the error, %w what was saved
};

const std::vector<Line>& Table() {
    static const std::vector<Line> lines{
        {Occasion::Opening,
         {PermissionDenied, InternalError, FileInUse, CouldNotLock, OpenedExclusively},
         {"Database is in use!\r\n\r\nTry later.\r\n\r\n(%t)", "Database", box::Stop, true, WayOn::EndRun}},
        {Occasion::Opening,
         {FileNotFound},
         {"Missing database file...", "Tvx.mdb is missing...", box::Exclamation, true, WayOn::EndRun}},
        {Occasion::Opening,
         {ItemNotFound},
         {"The database is the wrong version...\nUse a later version of this program. ",
          "Tvx.mdb wrong version...", box::Exclamation, true, WayOn::EndRun}},
        {Occasion::Opening,
         {UnrecognisedFormat},
         {"Damaged database file (TVX.MDB).\r\nWill attempt to restore...restart the program.",
          "Damaged database file.", box::Exclamation, true, WayOn::EndRun}},
        {Occasion::Opening,
         {},
         {"Database problem.. Error number is:%n.\n%t", "Database", box::Stop, true, WayOn::EndRun}},
        {Occasion::ReadingDepartments,
         {},
         {"Database error, try again..%n %t", "Database error...", box::Ok}},
        {Occasion::BeginningSave,
         {},
         {"Database error, try again..\r\n\r\n%n %t", "Database error...", box::Ok}},
        {Occasion::Saving,
         {},
         {"Could not save this %w,\r\nthis page is locked by another user, try again..\r\n\r\n(%n)",
          "Locked page...", box::Ok}},
        {Occasion::Working, {}, {"%t", "Tarvex", box::Stop}},
    };
    return lines;
}

bool Fits(const Line& line, Occasion occasion, int number) {
    const auto& numbers = line.numbers;
    return line.occasion == occasion &&
           (numbers.empty() || std::find(numbers.begin(), numbers.end(), number) != numbers.end());
}

const EngineSentence& SentenceOf(int number) {
    const auto of = [](int wanted) {
        return std::ranges::find(EngineSentences(), wanted, &EngineSentence::number);
    };
    const auto found = of(number);
    return found != EngineSentences().end() ? *found : *of(InternalError);
}

} // namespace

const std::vector<EngineSentence>& EngineSentences() {
    static const std::vector<EngineSentence> sentences{
        {Overflow, "An employee number is not between 1 and 32,767."},
        {PermissionDenied, "The file may not be used by this person."},
        {InternalError, "The database met trouble that has no name."},
        {InvalidIndex, "A table of the database cannot be searched in this way."},
        {UpdateWithoutEdit, "A record was written that had not been opened for a change."},
        {NoCurrentRecord, "The record is not there any more."},
        {DuplicateKey, "There is a record of that key already."},
        {FileNotFound, "The database file is missing."},
        {DiskFull, "The disk is full."},
        {ReadOnly, "The database can be read but not written."},
        {NotEnoughMemory, "There is not enough memory."},
        {DiskError, "The disk or the network did not read or write as it should."},
        {FileInUse, "Another workstation is using the database."},
        {CannotOpen, "The database file cannot be opened or written."},
        {TooFewParameters, "A question to the database lacks a value."},
        {SyntaxError, "A question to the database was not understood."},
        {TableNotFound, "A table is missing in the database."},
        {FieldTooSmall, "A text is too long for its field."},
        {RecordDeleted, "The record was deleted meanwhile."},
        {FieldExists, "The field is in the table already."},
        {AlreadyExists, "There is a file of that name already."},
        {CouldNotLock, "Another workstation is writing at this moment."},
        {ItemNotFound, "A field is missing in the database."},
        {UnrecognisedFormat, "The database file is damaged, or is no database."},
        {NumberTooLarge, "A number is too large for its field."},
        {OpenedExclusively, "Another workstation has the database for itself."},
        {ObjectInvalid, "The database is not open."},
    };
    return sentences;
}

Trouble TroubleOf(Occasion occasion, int number, const std::string& text, const std::string& what) {
    const auto line = std::find_if(Table().begin(), Table().end(),
                                   [&](const Line& each) { return Fits(each, occasion, number); });
    Trouble trouble = line->trouble;
    const std::string pattern = std::exchange(trouble.text, "");
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char mark = pattern[i] == '%' ? pattern[++i] : '\0';
        if (mark == 'n')
            trouble.text += std::to_string(number);
        else if (mark == 't')
            trouble.text += text;
        else if (mark == 'w')
            trouble.text += what;
        else
            trouble.text += pattern[i];
    }
    return trouble;
}

std::string PlainText(const dao::DaoError& error) {
    const std::string sentence = SentenceOf(error.Number()).text;
    return error.About().empty() ? sentence : sentence + "\r\n" + error.About();
}

Trouble TroubleOf(Occasion occasion, const std::exception& error, const std::string& what) {
    if (const auto* engine = dynamic_cast<const dao::DaoError*>(&error))
        return TroubleOf(occasion, engine->Number(), PlainText(*engine), what);
    if (const auto* file = dynamic_cast<const FileError*>(&error))
        return TroubleOf(occasion, file->Number(), file->what(), what);
    return TroubleOf(occasion, 0, error.what(), what);
}

WayOn TellTrouble(Prompt& prompt, const Trouble& trouble) {
    prompt.MousePointer(Pointer::Default);
    if (trouble.beep) prompt.Beep();
    prompt.MsgBox(trouble.text, trouble.style, trouble.title, trouble.detail);
    return trouble.wayOn;
}

} // namespace tvx
