// What the database engine can refuse, by the numbers that decide what comes next.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace tvx::dao {

/// Numbers of trouble that something is decided by or that a box shows.
namespace error {
constexpr int Overflow = 6;
constexpr int PermissionDenied = 70;
constexpr int NoCurrentRecord = 3021;
constexpr int UpdateWithoutEdit = 3020;
constexpr int DuplicateKey = 3022;
constexpr int FileNotFound = 3024;
constexpr int DiskFull = 3026;
constexpr int ReadOnly = 3027;
constexpr int DiskError = 3043;
constexpr int FileInUse = 3045;
constexpr int CannotOpen = 3051;
constexpr int TooFewParameters = 3061;
constexpr int SyntaxError = 3075;
constexpr int TableNotFound = 3078;
constexpr int FieldTooSmall = 3163;
constexpr int RecordDeleted = 3167;
constexpr int FieldExists = 3191;
constexpr int AlreadyExists = 3204;
constexpr int CouldNotLock = 3260;
constexpr int ItemNotFound = 3265;
constexpr int UnrecognisedFormat = 3343;
constexpr int NumberTooLarge = 3349;
constexpr int OpenedExclusively = 3356;
constexpr int ObjectInvalid = 3420;
constexpr int InvalidIndex = 3015;
constexpr int NotEnoughMemory = 3035;
constexpr int InternalError = 3000;
} // namespace error

/// Trouble reported by the engine. Nothing of the failed operation has happened. Its text may hold words of
/// the engine and is for those who look for the cause; a person reads the sentence of the number, and what it
/// is about: a file, a field.
class DaoError : public std::runtime_error {
  public:
    DaoError(int number, const std::string& text, std::string about = "")
        : std::runtime_error(text), number_(number), about_(std::move(about)) {}
    int Number() const { return number_; }
    const std::string& About() const { return about_; }

  private:
    int number_;
    std::string about_;
};

} // namespace tvx::dao
