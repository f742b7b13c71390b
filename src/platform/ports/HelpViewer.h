// Help, by topic.
#pragma once

namespace tvx {

class HelpViewer {
  public:
    virtual ~HelpViewer() = default;

    /// Shows the help topic of that number; a number without a topic of its own shows the contents.
    virtual void ShowTopic(int topic) = 0;
};

/// Numbers of the help topics.
namespace help {
constexpr int Questions = 20;
constexpr int EmployeeRecord = 70;
constexpr int Productivity = 140;
constexpr int EnteringTime = 170;
constexpr int Schedules = 200;
constexpr int Daytypes = 360;
constexpr int DepartmentProfile = 370;
} // namespace help

} // namespace tvx
