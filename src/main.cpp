#include "shell/screens/Run.h"

int main(int count, char** arguments) {
    return tvx::qt::RunTarvex(count, arguments);
}
