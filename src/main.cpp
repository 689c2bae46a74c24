#include "driver/TGame.h"

int main() {
    tolvane::TGame game;
    return game.Run();
}
