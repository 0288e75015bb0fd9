#pragma once

#include <string_view>

/// The short English name of a weekday or a month of another language, such as "Mon" for "lundi"
/// and "Dec" for "Dez.". Empty for other words. Case does not matter.
std::string_view english_weekday(std::string_view word);
std::string_view english_month(std::string_view word);
