// The plain blue backdrop that hides the desktop behind the program's other screens.
#pragma once

#include "platform/desktop.h"
#include "screens/shell/screen_names.h"

namespace screens {

class Grey final : public platform::Screen {
 public:
  explicit Grey(platform::Desktop& desktop) : Screen(desktop, shell::backdrop) {
    caption = "Form1";
    spokenName = "Backdrop";
    frame = platform::Frame::Backdrop;
    background = {49, 135, 215};
  }
};

}  // namespace screens
