// The page on paper: real text, the inputs as marks, the pictures.
#pragma once

#include <functional>
#include <string_view>

#include "platform/html/view.h"

class QFont;
class QPixmap;
class QPrinter;

namespace practice::desktop {

/// `picture` finds one by its source; null when it is refused.
void print_page(html::View& view, const std::function<QPixmap(std::string_view source)>& picture,
                const QFont& fallback, double scale, QPrinter& printer);
void print_picture(const QPixmap& picture, QPrinter& printer);

}  // namespace practice::desktop
