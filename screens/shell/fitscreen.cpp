#include "screens/shell/fitscreen.h"

namespace shell {

namespace {

void placeInMiddle(const platform::Desktop& desktop, platform::Screen& screen) {
  const platform::Size display = desktop.displaySize();
  screen.top = display.height / 2 - screen.height / 2;
  screen.left = display.width / 2 - screen.width / 2;
}

}  // namespace

void centre(const platform::Desktop& desktop, platform::Screen& screen) {
  screen.width = 0;
  screen.height = 0;
  placeInMiddle(desktop, screen);
}

void fitscreen(platform::Desktop& desktop, platform::Screen& screen) {
  screen.width = 12000;
  screen.height = 9000;
  desktop.setPointer(platform::Pointer::Busy);
  placeInMiddle(desktop, screen);
  desktop.setPointer(platform::Pointer::Default);
}

}  // namespace shell
