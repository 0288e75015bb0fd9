#include "writers/html_page.hpp"

#include <array>

namespace {

constexpr std::string_view schedhead[] = {
    "background-color: #333333;", "color: #ffffff;",
    "font-weight: 700;",          "text-align: left;",
    "line-height: 28px;",         "font-family: 'Myriad Pro', Ubuntu, _sans;",
    "font-size: 28px;",           "padding: 0.3em;",
    "padding-left: 6em;",         "padding-top: 1em;",
    "padding-bottom: 1em;",       "margin: 0px;",
};
constexpr std::string_view schedheadtype[] = {
    "font-weight: 700;", "font-family: 'Myriad Pro', Ubuntu, _sans;",
    "font-size: 28px;",  "padding: 0px;",
    "margin: 0px;",
};
constexpr std::string_view schedheaddate[] = {
    "font-weight: 300;", "font-family: 'MV Boli', _serif;", "font-size: 28px;", "padding: 0px;",
    "margin: 0px;",
};
constexpr std::string_view schedheadbtmborder[] = {
    "background-color: #5A6384;",
    "padding: 0px;",
    "margin: 0px;",
    "height: 0.8em;",
};
constexpr std::string_view table_scheddayselect[] = {
    "background-color: #FFFFFF;",
    "background: linear-gradient(to right,#FFFFFF,#FFFFFF 33%,#706D6E);",
    "color: #000000;",
    "font-weight: 400;",
    "font-family: 'Myriad Pro', Ubuntu, _sans;",
    "font-size: 36px;",
    "padding: 0.05em;",
    "padding-top: 0.5em;",
    "padding-bottom: 0.5em;",
    "width: 100%;",
    "margin: 0px;",
};
constexpr std::string_view td_scheddayselect[] = {
    "font-weight: 700;",
    "line-height: 28px;",
    "font-family: 'Myriad Pro', Ubuntu, _sans;",
    "font-size: 28px;",
};
constexpr std::string_view a_scheddayselect[] = {
    "font-weight: 400;", "font-family: 'Myriad Pro', Ubuntu, _sans;",
    "font-size: 36px;",  "text-decoration: none;",
    "color: #ffffff;",
};
constexpr std::string_view a_scheddayselect_hover[] = {
    "color: #bfbfbf;",
};
constexpr std::string_view scheddayname[] = {
    "font-size: 38px;",
};
constexpr std::string_view scheddaydate[] = {
    "font-weight: 300;", "font-family: 'MV Boli', _serif;", "font-size: 28px;", "padding: 0px;",
    "margin: 0px;",
};
constexpr std::string_view table_schedday[] = {
    "background-color: #333333;",
    "color: #ffffff;",
    "font-weight: 300;",
    "font-size: 24px;",
    "font-family: 'Myriad Pro', Ubuntu, _sans;",
    "padding: 0px;",
    "margin: 0px;",
    "width: 100%;",
};
constexpr std::string_view schedrating[] = {
    "border-radius: 0.15em;",
    "background-color: #ffffff;",
    "color: #000000;",
    "float: right;",
    "font-family: 'Myriad Pro', Ubuntu, _sans;",
    "white-space: nowrap;",
    "margin-right: 0.2em;",
    "padding: 0.2em;",
    "font-size: 0.8em;",
    "font-weight: 700;",
    "line-height: 0.8em;",
};
constexpr std::string_view schedsummary[] = {
    "color: #939393;",     "font-size: 0.7em;",    "font-weight: 400;",
    "font-style: italic;", "padding-left: 1.1em;", "font-family: 'Myriad Pro', Ubuntu, _sans;",
};
constexpr std::string_view neversplit[] = {
    "white-space: nowrap;",
};
constexpr std::string_view schedampm[] = {
    "white-space: nowrap;",
    "font-size: 16px;",
};
constexpr std::string_view schedprogram[] = {
    "color: #ffffff;",
    "font-size: 18px;",
};

constexpr std::array<StyleRule, 16> style = {{
    {".schedhead", schedhead},
    {".schedheadtype", schedheadtype},
    {".schedheaddate", schedheaddate},
    {".schedheadbtmborder", schedheadbtmborder},
    {"table.scheddayselect", table_scheddayselect},
    {"td.scheddayselect", td_scheddayselect},
    {"a.scheddayselect", a_scheddayselect},
    {"a.scheddayselect:hover", a_scheddayselect_hover},
    {".scheddayname", scheddayname},
    {".scheddaydate", scheddaydate},
    {"table.schedday", table_schedday},
    {".schedrating", schedrating},
    {".schedsummary", schedsummary},
    {".neversplit", neversplit},
    {".schedampm", schedampm},
    {".schedprogram", schedprogram},
}};

}  // namespace

std::span<const StyleRule> page_style() {
  return style;
}

constexpr std::string_view page_opening =
    "<!DOCTYPE html>\n"
    "<html>\n"
    "  <head>\n"
    "    <meta charset=\"UTF-8\" />\n"
    "    <meta http-equiv=\"content-type\" content=\"text/html; charset=UTF-8\" />\n"
    "    <title>";

constexpr std::string_view page_style_opening = "</title>\n  <style>\n";

constexpr std::string_view page_script_opening =
    "  </style>\n"
    "  <script type=\"text/javascript\"><!--\n"
    "    var d = new Date();\n";

constexpr std::string_view page_script_closing = "  --></script>\n  </head>\n  <body>\n";

constexpr std::string_view page_closing = "  </body>\n</html>\n";

constexpr std::string_view time_cell_opening =
    "      <td align=\"center\" valign=\"center\" style=\"width: 6em; height: 1.4em; "
    "white-space: nowrap; border-right: 0.075em solid #ffffff; vertical-align: center; "
    "text-align: right; padding-right: 0.3em; padding-top: 0.15em; padding-bottom: 0.15em;\">";

constexpr std::string_view text_cell_opening =
    "      <td style=\"line-height: 19px; background-color: #191919; padding-left: 0.65em; "
    "padding-top: 0.2em; padding-bottom: 0.2em; border-bottom: 0.075em solid #ffffff;\">";

constexpr std::string_view cell_closing = "</td>\n";

constexpr std::string_view day_bar_opening =
    "    <table class=\"scheddayselect\">\n"
    "      <tr>\n";

constexpr std::string_view left_arrow_opening =
    "        <td class=\"scheddayselect\" valign=\"center\" align=\"right\" width=\"35%\">"
    "<a class=\"scheddayselect\" href=\"#";

// Both arrows use this drawing: a shadow below the arrow, which lights up under the pointer.
#define ARROW_OPENING                                                                        \
  "\">"                                                                                      \
  "<svg style=\"height: 78px;\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 30 42\">" \
  "<defs>"                                                                                   \
  "<style>.shadow{fill:#000;} .cls-1{fill:#559955;} .cls-1:hover{fill:#AAE2AA;}</style>"     \
  "</defs>"

constexpr std::string_view left_arrow_picture = ARROW_OPENING
    "<polygon class=\"shadow\" transform=\"translate(1,2)\" points=\"29 40 29 0 0 20 29 40\"/>"
    "<polygon class=\"cls-1\" points=\"29 40 29 0 0 20 29 40\"/>"
    "</svg>"
    "</a></td>\n";

constexpr std::string_view day_name_opening =
    "        <td class=\"scheddayselect\" align=\"center\" width=\"30%\" cellpadding=\"0\" "
    "cellspacing=\"0\" style=\"min-width: 10em; font-size: 10px; margin: 0px; padding: 0px;\">";

constexpr std::string_view right_arrow_opening =
    "        <td class=\"scheddayselect\" valign=\"center\" align=\"left\" width=\"35%\">"
    "<a class=\"scheddayselect\" href=\"#";

constexpr std::string_view right_arrow_picture = ARROW_OPENING
    "<polygon class=\"shadow\" transform=\"translate(0,2)\" points=\"0 40 0 0 29 20 0 40\"/>"
    "<polygon class=\"cls-1\" transform=\"translate(1,0)\" points=\"0 40 0 0 29 20 0 40\"/>"
    "</svg>\n"
    "</a></td>\n";

constexpr std::string_view day_bar_closing =
    "      </tr>\n"
    "    </table>\n"
    "    <table class=\"schedday\" cellpadding=\"0\" cellspacing=\"0\">\n";
