// The page on paper: real text, the inputs as marks, the pictures.
#pragma once

#include "platform/html/view.h"

class QFont;
class QPixmap;
class QPrinter;

namespace practice::desktop {

class Pictures;

void print_page(html::View& view, Pictures& pictures, const QFont& fallback, double scale,
                QPrinter& printer);
void print_picture(const QPixmap& picture, QPrinter& printer);

}  // namespace practice::desktop
