// A small book without a fault, in a folder of its own. Rules are tried by changing one thing in
// it.
#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "book_setting/command_line.h"

namespace practice::books {

constexpr std::string_view sample_head = R"(exam = "heron"
title = "HERON"
subtitle = "Wide-Area Links"
publisher = "Brightwater Press"
edition = "First edition, 2026"
date = 2026-11-01
imprint = ["All *rights* are the reader's."]
)";

constexpr std::string_view sample_first = R"(# Serial Lines

A line carries **bits**, one *after* the other.

## Clocks and Codes

One end sets the clock with `clock rate`:

```
R1(config-if)# clock rate 64000
```

- The DCE sets it.
- The DTE follows:
  1. it listens,
  2. it answers.

![A line and its clock.](line.svg)

## Cables

| Cable | Pins |
| --- | ---: |
| V.35 | 34 |
| X.21 | 15 |
)";

constexpr std::string_view sample_second = R"(# Framing

## Flags and Stuffing

A frame begins and ends with a flag.
)";

constexpr std::string_view sample_figure =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 640 100" font-family="DejaVu Sans">
  <rect width="640" height="100" fill="#ffffff"/>
  <line x1="20" y1="50" x2="620" y2="50" stroke="#1f5f8b"/>
  <text x="320" y="40" font-size="14" fill="#5b6670" text-anchor="middle">clock</text>
</svg>
)";

/// What a run of the book setter said.
struct Outcome {
  int code = 0;
  std::string out{};
  std::string err{};
};

inline Outcome run_setter(const std::vector<std::string>& arguments) {
  const std::vector<std::string_view> views(arguments.begin(), arguments.end());
  std::ostringstream out;
  std::ostringstream err;
  const int code = run(views, out, err);
  return {.code = code, .out = out.str(), .err = err.str()};
}

inline std::string bytes_of(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

class SampleBook {
 public:
  SampleBook() {
    std::filesystem::create_directories(folder() / "figures");
    write("book.toml", sample_head);
    write("01.md", sample_first);
    write("02.md", sample_second);
    write("figures/line.svg", sample_figure);
  }

  std::filesystem::path root() const { return directory_.path().toStdString(); }
  std::filesystem::path folder() const { return root() / "heron"; }

  void write(const std::string& file, std::string_view text) const {
    std::ofstream(folder() / file, std::ios::binary) << text;
  }

  /// Puts `after` in the place of the only `before`.
  void change(const std::string& file, std::string_view before, std::string_view after) const {
    std::string text = bytes_of(folder() / file);
    const auto place = text.find(before);
    if (place == text.npos || text.find(before, place + 1) != text.npos) {
      throw std::logic_error("not there once: " + std::string(before));
    }
    write(file, text.replace(place, before.size(), after));
  }

  /// The faults name their files without the folder.
  Outcome check() const {
    Outcome outcome = run_setter({"--check", folder().string()});
    const std::string prefix = folder().string() + "/";
    for (auto place = outcome.err.find(prefix); place != outcome.err.npos;
         place = outcome.err.find(prefix)) {
      outcome.err.erase(place, prefix.size());
    }
    return outcome;
  }

 private:
  QTemporaryDir directory_{};
};

}  // namespace practice::books
