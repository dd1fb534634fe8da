// Timers, handlers, mouse and keys as every screen relies on them, and file names.

#include "platform/desktop.h"

#include <fstream>
#include <map>

#include "platform/files.h"
#include "simulated_program.h"

using std::chrono::milliseconds;

static std::string diary;

struct Clock final : platform::Screen {
  explicit Clock(platform::Desktop& on) : Screen(on, "Clock") {
    add(timer);
    timer.onTick = [] { diary += "tick "; };
    timer.enable();
  }
  ~Clock() override { diary += "gone "; }
  platform::Timer timer{100};
};

// Shows a clock at the moment 0.
static platform::Timer& startClock(platform::SimulatedDesktop& desktop) {
  diary.clear();
  desktop.registerScreen("Clock", [&desktop] { return std::make_unique<Clock>(desktop); });
  desktop.start("Clock");
  return static_cast<Clock&>(*desktop.find("Clock")).timer;
}

TEST(Timer, KeepsItsRhythmAndCausesNoBurst) {
  platform::SimulatedDesktop desktop;
  startClock(desktop);
  // The moment, the ticks that have come, the next one.
  for (const auto& [now, ticks, next] : tests::rows<3>(R"(
      99 0 100   100 1 200   100 1 200   230 2 300   399 3 400   399 3 400   500 4 600   1650 5 1750   1650 5 1750
      1749 5 1750   1751 6 1850)")) {
    desktop.stall(std::stoi(now) - static_cast<int>(desktop.now() / milliseconds(1)));
    desktop.runDueTick();
    EXPECT_EQ(diary.size(), 5 * std::stoul(ticks)) << now;
    EXPECT_EQ(desktop.nextTick(), milliseconds(std::stoi(next))) << now;
  }
}

TEST(Timer, CountsFromWhenItIsEnabledOrSet) {
  // What a handler does after 60 ms (e: enable, d: disable, 1 and 3: set to 100 and 30 ms); the next tick.
  for (const auto& [deeds, next] : tests::rows<2>("e 100   1 160   3 90   de 160   d3 -")) {
    platform::SimulatedDesktop desktop;
    platform::Timer& timer = startClock(desktop);
    desktop.stall(60);
    desktop.handle([&timer, &all = deeds] {
      for (const char deed : all) {
        if (deed == 'e') timer.enable();
        if (deed == 'd') timer.disable();
        if (deed == '1') timer.setInterval(100);
        if (deed == '3') timer.setInterval(30);
      }
    });
    const auto due = desktop.nextTick();
    EXPECT_EQ(due ? std::to_string(*due / milliseconds(1)) : "", next) << deeds;
  }
}

TEST(Handler, RunsToItsEndBeforeItsScreenGoes) {
  platform::SimulatedDesktop desktop;
  startClock(desktop).onTick = [&desktop] {
    desktop.unload("Clock");
    desktop.show("Clock");  // A fresh one.
    diary += "done ";
  };
  desktop.advance(100);
  EXPECT_EQ(diary, "done gone ");
  EXPECT_EQ(desktop.nextTick(), milliseconds(200));
  EXPECT_FALSE(desktop.ended);
}

// A screen of a link (n), a piece (d) and others of each kind, which all tell the diary what they hear. On a
// second screen, which n shows, they do so in brackets.
struct Panel final : platform::Screen {
  Panel(platform::Desktop& on, std::string_view name) : Screen(on, name) {
    client = {1000, 1000};
    const std::map<std::string, platform::Role> roles{{"button", platform::Role::Button},
                                                      {"box", platform::Role::CheckBox},
                                                      {"link", platform::Role::Link},
                                                      {"piece", platform::Role::Piece},
                                                      {"text", platform::Role::Text}};
    // Each is 100 high; b covers half of c, the hidden h the other half; t covers a and hears nothing.
    for (const auto& [part, role, x, y, wide] : tests::rows<5>(R"(
        a button 0 0 100      c button 200 0 200    b button 200 0 100    h button 300 0 100   t text 0 0 100
        d piece 500 500 100   e piece 650 500 100   f piece 800 500 100   o box 0 200 100      n link 0 400 100)")) {
      platform::Widget& widget = parts[part];
      add(widget, part,
          {.left = std::stof(x),
           .top = std::stof(y),
           .width = std::stof(wide),
           .height = 100,
           .visible = part != "h",
           .enabled = part != "b" && part != "e",
           .role = roles.at(role)});
      if (role == "piece") {
        widget.tabStop = 20;
        widget.onMouseMove = [this, &widget](const platform::MouseEvent& mouse) {
          note(widget.name + std::to_string(mouse.buttons), mouse);
        };
        widget.onMouseUp = [this, &widget](const platform::MouseEvent& mouse) {
          note(widget.name + "up", mouse);
        };
      } else if (role != "text") {
        widget.onClick = [this, &widget] { note(widget.name + (widget.checked ? "!" : "")); };
      }
    }
    parts["c"].onClick = [this] {
      note("c");
      parts["c"].enabled = false;
    };
    parts["c"].key = platform::Key{'C'};
    parts["n"].key = platform::Key::Return;
    parts["o"].key = platform::Key{'X'};  // Never heard: the screen itself comes first.
    parts["n"].onClick = [this] {
      desktop().say("Off we");
      desktop().show("Second");
      desktop().say("go.");
    };
  }
  bool onKey(platform::Key key) override {
    const bool onwards = key == platform::Key::Right, back = key == platform::Key::Left;
    const bool own = key == platform::Key{'X'} || (focus() == &parts["d"] && key == platform::Key::Space);
    if (onwards || back) moveFocusAlong(20, onwards ? 1 : -1);
    if (key == platform::Key{'X'}) parts[parts["f"].visible ? "f" : "d"].visible = false;
    if (own) note(std::string("key") + static_cast<char>(key));
    return onwards || back || own;
  }
  void note(const std::string& what, const std::optional<platform::MouseEvent>& mouse = {}) const {
    std::ostringstream text;
    text << what;
    if (mouse) text << "@" << mouse->x << "/" << mouse->y;
    diary += (name() == "Second" ? "(" + text.str() + ")" : text.str()) + " ";
  }
  std::map<std::string, platform::Widget> parts;
};

// What is heard of these events on the screen in front: a mouse button that goes down or up (p1:a, r1:a) in
// the middle of a widget or at a place, a move (m:a) or one that shows that a release got lost (l:a), a wait
// (w399) or a key. [a] is a button that is seen to sink, [] its rising, <a> the widget that is now chosen.
static std::string heardOf(const std::string& events) {
  const std::map<std::string, platform::Key> keys{
      {"tab", platform::Key::Tab},     {"back", platform::Key::BackTab}, {"left", platform::Key::Left},
      {"right", platform::Key::Right}, {"space", platform::Key::Space},  {"return", platform::Key::Return},
      {"C", platform::Key{'C'}},       {"X", platform::Key{'X'}}};
  diary.clear();
  platform::SimulatedDesktop desktop;
  for (const char* name : {"First", "Second"})
    desktop.registerScreen(name, [&desktop, name] { return std::make_unique<Panel>(desktop, name); });
  desktop.start("First");
  int held = 0;
  std::istringstream words(events);
  for (std::string word; words >> word;) {
    Panel& panel = static_cast<Panel&>(*desktop.openScreens().back());
    const auto *sunk = panel.sunk(), *chosen = panel.focus();
    const int refreshes = desktop.refreshes;
    const std::size_t before = diary.size();
    if (keys.contains(word)) {
      desktop.pressKey(panel.name(), keys.at(word));
    } else if (word[0] == 'w') {
      desktop.advance(std::stoi(word.substr(1)));
    } else {
      std::istringstream place(word.substr(word.find(':') + 1));
      platform::MouseEvent mouse;
      if (panel.parts.contains(place.str())) {
        const platform::Widget& part = panel.parts.at(place.str());
        mouse = {0, part.left + part.width / 2, part.top + part.height / 2};
      } else {
        char slash = 0;
        place >> mouse.x >> slash >> mouse.y;
      }
      const int button = word[1] - '0';
      if (word[0] == 'p') held |= button;
      if (word[0] == 'r') held &= ~button;
      if (word[0] == 'l') held = 0;
      mouse.buttons = held;
      mouse.time = desktop.now();
      if (word[0] == 'p' && !desktop.pressMouse(panel, mouse)) panel.note("ground");
      if (word[0] == 'r') desktop.releaseMouse(panel, mouse, button);
      if (word[0] == 'm' || word[0] == 'l') desktop.moveMouse(panel, mouse);
    }
    if (diary.size() > before && !diary.ends_with("ground ") && desktop.refreshes == refreshes)
      diary += "unseen ";
    for (const std::string& told : std::exchange(desktop.said, {})) diary += told + " ";
    if (panel.sunk() != sunk && desktop.refreshes > refreshes)
      diary += "[" + (panel.sunk() ? panel.sunk()->name : "") + "] ";
    if (panel.focus() != chosen) diary += "<" + (panel.focus() ? panel.focus()->name : "") + "> ";
  }
  return diary.substr(0, diary.find_last_not_of(' ') + 1);
}

TEST(Mouse, IsHeardByWhatItIsOver) {
  for (const auto& [events, heard] : tests::rows<2>(R"(
      p1:a+r1:a [a]+a+[]                    p1:0/0+r1:99/99 [a]+a+[]              p2:a+r2:a -
      p1:100/50 ground                      p1:50/100 ground                      p1:-1/50 ground
      p1:a+r1:100/50 [a]+[]                 p1:a+m:100/50+r1:100/50 [a]+[]        p1:100/50+m:a+r1:a ground
      p1:a+m:100/50+m:50/99+r1:a [a]+[]+[a]+a+[]                                  p1:a+m:50/51+r1:a [a]+a+[]
      p1:b+r1:b -                           p1:c+r1:c+p1:c+r1:c [c]+c+[]          p1:e+m:e+r1:e -
      p1:a+p2:a+r2:a+r1:a [a]+a+[]          p1:a+p2:a+r1:a+r2:a [a]+a+[]          p3:a+r3:a -
      p2:100/50+p1:a+r1:a ground            p1:a+p2:d+m:d+r2:d+r1:a [a]+[]+a        p1:a+l:a [a]+[]
      m:a+m:e+m:d d0@50/50                  p1:100/50+m:d ground                  p4:d+m:510/520+r4:d d4@10/20+dup@50/50
      p1:d+m:f+r1:f d1@350/50+dup@350/50    p1:d+m:-9/9+m:1009/999+r1:2000/d d1@-500/-491+d1@500/499+dup@1500/-500
      p1:d+m:9/-9+m:999/1009 d1@-491/-500+d1@499/500                              p1:d+l:f dup@350/50+f0@50/50
      p1:d+p2:a+m:a+r1:d+m:d+r2:d d3@-450/-450+dup@50/50+d2@50/50+dup@50/50      p1:d+r1:d+m:d dup@50/50+d0@50/50
      p1:a+r1:a+p1:a+r1:a [a]+a+[]+[a]+a+[]
      w1000+p1:n+r1:n+w399+p1:a+r1:a [n]+Off+we+go.+[]
      w1000+p1:n+r1:n+w400+p1:a+r1:a [n]+Off+we+go.+[]+[a]+(a)+[]
      p1:n+r1:n+p1:a+r1:a+p1:a+r1:a [n]+Off+we+go.+[]+[a]+(a)+[]
      p1:a+C+tab+r1:a+X [a]+a+[]+keyX)")) {
    EXPECT_EQ(heardOf(events), heard) << events;
  }
}

TEST(Keyboard, ChoosesAndClicks) {
  for (const auto& [events, heard] : tests::rows<2>(R"(
      tab+tab+tab+tab+tab+tab <a>+<c>+<o>+<n>+<d>+<a>      back+back+back+back+back+back <d>+<n>+<o>+<c>+<a>+<d>
      back+right+right+left+left <d>+<f>+<d>               right+left+right <d>+<f>
      back+right+tab+back+back+tab <d>+<f>+<a>+<f>+<n>+<f> back+right+tab+right <d>+<f>+<a>+<f>
      tab+space+return <a>+a+a                             tab+tab+space+space+tab <a>+<c>+c+<o>
      back+space+X+right+space+X <d>+key++keyX+key++keyX   space+X keyX
      back+right+X+tab+back <d>+<f>+keyX+<a>+<d>           X+X+right+back keyX+keyX+<n>
      back+back+back+space+space <d>+<n>+<o>+o!+o          C+C+tab+tab c+<a>+<o>
      tab+C+space <a>+c+a                                  return+tab+return Off+we+go.+<a>+(a)
      tab+return <a>+a                                     back+back+space <d>+<n>+Off+we+go.)")) {
    EXPECT_EQ(heardOf(events), heard) << events;
  }
}

TEST(File, IsFoundInEveryCase) {
  const tests::EmptyFolder folder;
  std::filesystem::create_directories("Images/Old");
  for (const char* file : {"Images/Start.JPG", "Images/Old/start.jpg", "Rules.doc", "RULES.DOC"})
    std::ofstream(file) << "x";
  for (const auto& [name, file] : tests::rows<2>(R"(
      Images\Start.JPG Images/Start.JPG   images\start.jpg Images/Start.JPG   IMAGES\OLD\START.JPG Images/Old/start.jpg
      images\star.jpg Images/star.jpg     wav\key.wav wav/key.wav             Rules.doc Rules.doc   RULES.DOC RULES.DOC)")) {
    EXPECT_EQ(platform::fileNamed(name).generic_string(), file);
  }
  const std::string large(200000, 'x');
  platform::writeFile("large.wav", large);
  for (const std::size_t most : {70000U, 1000000U})
    EXPECT_TRUE(platform::readFile("Large.WAV", most) == large.substr(0, most)) << most;
}
