// What the Main Editor opens over itself. The rooms of those screens stand above the editor's, so that it
// knows them by this list alone.
#pragma once

namespace tvx::qt {

class Form;

class EditorScreens {
  public:
    virtual ~EditorScreens() = default;

    /// The daytypes, modal; the global request says what for.
    virtual void OpenDaytypes(Form& owner) = 0;
    /// The stored shifts, modal; the global request says what for.
    virtual void OpenShifts(Form& owner) = 0;
    /// The seven-day schedules, modal; `FormCommand` says which kind.
    virtual void OpenSchedules(Form& owner) = 0;
};

} // namespace tvx::qt
