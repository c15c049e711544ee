// An outside observer of programs on an X display without a window manager. It prints times in
// milliseconds, measured at the display server, and so sees any program alike.
//
//   screen_watch start PROGRAM [ARGUMENT]...
//       starts the program; from there to its first window mapped, and to that painted
//   screen_watch open KEYCODE
//       presses the key; from there to a further window mapped, and to that painted
//   screen_watch change WINDOW X Y WIDTH HEIGHT KEYCODE [MODIFIER KEYCODE]
//       presses the key; from there to other pixels within that rectangle of the window
//
// Painted means that nothing of the display's background is left in the window, which is why the
// background is given a colour that no program uses.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr std::uint32_t backdrop = 0x00FE01FD;
constexpr std::uint32_t colour_bits = 0x00FFFFFF;
constexpr auto patience = 10s;
constexpr auto between_looks = 100us;
// Smaller windows are a toolkit's own, not a screen.
constexpr int least_window = 100;

[[noreturn]] void fail(const std::string& what) {
  std::cerr << "screen_watch: " << what << '\n';
  std::exit(1);
}

double milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Reply = std::unique_ptr<T, Free>;

struct Window {
  xcb_window_t id = 0;
  int width = 0;
  int height = 0;
};

class Display {
 public:
  Display() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) fail("no display");
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
  }
  ~Display() { xcb_disconnect(connection_); }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

  void paint_backdrop_and_watch() {
    const std::uint32_t values[] = {backdrop, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
    xcb_change_window_attributes(connection_, root_, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    xcb_clear_area(connection_, 0, root_, 0, 0, 0, 0);
    round_trip();
  }

  void press(std::vector<std::uint8_t> keys) {
    for (const std::uint8_t key : keys) fake(XCB_KEY_PRESS, key);
    std::reverse(keys.begin(), keys.end());
    for (const std::uint8_t key : keys) fake(XCB_KEY_RELEASE, key);
    xcb_flush(connection_);
  }

  /// Waits for a window of a program's size to be mapped.
  Window wait_for_window(Clock::time_point deadline) {
    for (;;) {
      const Reply<xcb_generic_event_t> event = wait_for_event(deadline);
      if ((event->response_type & 0x7F) != XCB_MAP_NOTIFY) continue;
      const xcb_window_t id = reinterpret_cast<xcb_map_notify_event_t*>(event.get())->window;
      const Reply<xcb_get_geometry_reply_t> size(
          xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, id), nullptr));
      if (!size || size->width < least_window || size->height < least_window) continue;
      return {id, size->width, size->height};
    }
  }

  void wait_until_painted(const Window& window, Clock::time_point deadline) {
    for (const int quarter : {2, 1, 3}) {
      while (shows_backdrop(window, window.height * quarter / 4)) {
        if (Clock::now() > deadline) fail("the window stayed unpainted");
        std::this_thread::sleep_for(between_looks);
      }
    }
  }

  std::vector<std::uint32_t> pixels_of(xcb_window_t window, const xcb_rectangle_t& part) {
    const Reply<xcb_get_image_reply_t> image(
        xcb_get_image_reply(connection_,
                            xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, part.x,
                                          part.y, part.width, part.height, ~std::uint32_t{0}),
                            nullptr));
    if (!image) fail("the window can not be looked at");
    std::vector<std::uint32_t> pixels(std::size_t{part.width} * part.height);
    const auto bytes = pixels.size() * sizeof pixels[0];
    if (static_cast<std::size_t>(xcb_get_image_data_length(image.get())) < bytes) {
      fail("the display has fewer than 32 bits a pixel");
    }
    std::memcpy(pixels.data(), xcb_get_image_data(image.get()), bytes);
    return pixels;
  }

  void watch_changes(xcb_window_t window) {
    const xcb_query_extension_reply_t* damage = xcb_get_extension_data(connection_, &xcb_damage_id);
    if (damage == nullptr || damage->present == 0) fail("the display can not report changes");
    damage_event_ = damage->first_event;
    const Reply<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
        connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));
    xcb_damage_create(connection_, xcb_generate_id(connection_), window,
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    round_trip();
    while (Reply<xcb_generic_event_t>(xcb_poll_for_event(connection_))) {
    }
  }

  /// Waits until the pixels of that part are others than `before`. A mere repainting of the same
  /// is none.
  void wait_for_change(xcb_window_t window, const xcb_rectangle_t& wanted,
                       const std::vector<std::uint32_t>& before, Clock::time_point deadline) {
    for (;;) {
      const Reply<xcb_generic_event_t> event = wait_for_event(deadline);
      if ((event->response_type & 0x7F) != damage_event_ + XCB_DAMAGE_NOTIFY) continue;
      const xcb_rectangle_t& area = reinterpret_cast<xcb_damage_notify_event_t*>(event.get())->area;
      const bool meets = area.x < wanted.x + wanted.width && wanted.x < area.x + area.width &&
                         area.y < wanted.y + wanted.height && wanted.y < area.y + area.height;
      if (meets && pixels_of(window, wanted) != before) return;
    }
  }

 private:
  void fake(std::uint8_t type, std::uint8_t key) {
    xcb_test_fake_input(connection_, type, key, XCB_CURRENT_TIME, root_, 0, 0, 0);
  }

  void round_trip() {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  }

  Reply<xcb_generic_event_t> wait_for_event(Clock::time_point deadline) {
    for (;;) {
      Reply<xcb_generic_event_t> event(xcb_poll_for_event(connection_));
      if (event) return event;
      if (xcb_connection_has_error(connection_) != 0) fail("the display is gone");
      const auto left =
          std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
      if (left.count() <= 0) fail("nothing happened");
      pollfd socket{xcb_get_file_descriptor(connection_), POLLIN, 0};
      poll(&socket, 1, static_cast<int>(left.count()));
    }
  }

  bool shows_backdrop(const Window& window, int row) {
    const std::vector<std::uint32_t> pixels =
        pixels_of(window.id,
                  {0, static_cast<std::int16_t>(row), static_cast<std::uint16_t>(window.width), 1});
    return std::ranges::any_of(
        pixels, [](std::uint32_t pixel) { return (pixel & colour_bits) == backdrop; });
  }

  xcb_connection_t* connection_;
  xcb_window_t root_ = 0;
  int damage_event_ = 0;
};

void report_window(Display& display, Clock::time_point start) {
  const Window window = display.wait_for_window(start + patience);
  const auto mapped = Clock::now();
  display.wait_until_painted(window, start + patience);
  std::printf("%.2f %.2f\n", milliseconds(mapped - start), milliseconds(Clock::now() - start));
}

void start_program(char** command) {
  Display display;
  display.paint_backdrop_and_watch();
  pid_t child = 0;
  const auto start = Clock::now();
  if (posix_spawnp(&child, command[0], nullptr, nullptr, command, environ) != 0) {
    fail(std::string("can not start ") + command[0]);
  }
  report_window(display, start);
  kill(child, SIGTERM);
  waitpid(child, nullptr, 0);
}

void open_window(std::uint8_t key) {
  Display display;
  display.paint_backdrop_and_watch();
  const auto start = Clock::now();
  display.press({key});
  report_window(display, start);
}

void change_window(xcb_window_t window, const xcb_rectangle_t& area,
                   std::vector<std::uint8_t> keys) {
  Display display;
  display.watch_changes(window);
  const std::vector<std::uint32_t> before = display.pixels_of(window, area);
  const auto start = Clock::now();
  display.press(std::move(keys));
  display.wait_for_change(window, area, before, start + patience);
  std::printf("%.2f\n", milliseconds(Clock::now() - start));
}

template <class Number>
Number number(const char* text) {
  char* end = nullptr;
  const unsigned long value = std::strtoul(text, &end, 0);
  if (*text == '\0' || *end != '\0') fail(std::string("not a number: ") + text);
  return static_cast<Number>(value);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view what = argc > 1 ? argv[1] : "";
  if (what == "start" && argc > 2) {
    start_program(argv + 2);
  } else if (what == "open" && argc == 3) {
    open_window(number<std::uint8_t>(argv[2]));
  } else if (what == "change" && (argc == 8 || argc == 9)) {
    const xcb_rectangle_t area{number<std::int16_t>(argv[3]), number<std::int16_t>(argv[4]),
                               number<std::uint16_t>(argv[5]), number<std::uint16_t>(argv[6])};
    std::vector<std::uint8_t> keys;
    if (argc == 9) keys.push_back(number<std::uint8_t>(argv[8]));
    keys.push_back(number<std::uint8_t>(argv[7]));
    change_window(number<xcb_window_t>(argv[2]), area, std::move(keys));
  } else {
    fail("usage: screen_watch start|open|change ..., see the source");
  }
}
