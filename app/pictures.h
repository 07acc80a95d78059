#pragma once

#include <QIcon>

#include <string_view>

namespace merov::app
{

/// One of the program's pictures, crisp at any size and screen density and readable on light and dark
/// desktops.
/// @param name  file in icons/ without its extension, "star_fix". An unknown name is an error of the
///              program (std::logic_error).
QIcon Picture(std::string_view name);

} // namespace merov::app
