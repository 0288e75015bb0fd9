#include "checks/foreign_names.hpp"

#include <array>
#include <span>
#include <string>

#include "platform/syntax/text.hpp"

namespace {

struct ForeignName {
  std::string_view foreign;  ///< in lower case
  std::string_view english;
};

constexpr auto foreign_weekdays = std::to_array<ForeignName>({
    {"sonntag", "Sun"},    {"montag", "Mon"},    {"dienstag", "Tue"},  {"mittwoch", "Wed"},
    {"donnerstag", "Thu"}, {"freitag", "Fri"},   {"samstag", "Sat"},   {"sonnabend", "Sat"},
    {"dimanche", "Sun"},   {"lundi", "Mon"},     {"mardi", "Tue"},     {"mercredi", "Wed"},
    {"jeudi", "Thu"},      {"vendredi", "Fri"},  {"samedi", "Sat"},    {"domingo", "Sun"},
    {"lunes", "Mon"},      {"martes", "Tue"},    {"miercoles", "Wed"}, {"miércoles", "Wed"},
    {"jueves", "Thu"},     {"viernes", "Fri"},   {"sabado", "Sat"},    {"sábado", "Sat"},
    {"domenica", "Sun"},   {"lunedi", "Mon"},    {"lunedì", "Mon"},    {"martedi", "Tue"},
    {"martedì", "Tue"},    {"mercoledi", "Wed"}, {"mercoledì", "Wed"}, {"giovedi", "Thu"},
    {"giovedì", "Thu"},    {"venerdi", "Fri"},   {"venerdì", "Fri"},   {"sabato", "Sat"},
    {"zondag", "Sun"},     {"maandag", "Mon"},   {"dinsdag", "Tue"},   {"woensdag", "Wed"},
    {"donderdag", "Thu"},  {"vrijdag", "Fri"},   {"zaterdag", "Sat"},  {"söndag", "Sun"},
    {"måndag", "Mon"},     {"tisdag", "Tue"},    {"onsdag", "Wed"},    {"torsdag", "Thu"},
    {"fredag", "Fri"},     {"lördag", "Sat"},    {"so", "Sun"},        {"mo", "Mon"},
    {"di", "Tue"},         {"mi", "Wed"},        {"do", "Thu"},        {"fr", "Fri"},
    {"sa", "Sat"},         {"lun", "Mon"},       {"mar", "Tue"},       {"mer", "Wed"},
    {"jeu", "Thu"},        {"ven", "Fri"},       {"sam", "Sat"},       {"dim", "Sun"},
    {"lu", "Mon"},         {"ma", "Tue"},        {"me", "Wed"},        {"je", "Thu"},
    {"ve", "Fri"},         {"mie", "Wed"},       {"jue", "Thu"},       {"vie", "Fri"},
    {"sab", "Sat"},        {"dom", "Sun"},       {"gio", "Thu"},       {"zo", "Sun"},
    {"wo", "Wed"},         {"vr", "Fri"},        {"za", "Sat"},
});

constexpr auto foreign_months = std::to_array<ForeignName>({
    {"januar", "Jan"},     {"janvier", "Jan"},   {"enero", "Jan"},    {"gennaio", "Jan"},
    {"januari", "Jan"},    {"jänner", "Jan"},    {"ene", "Jan"},      {"gen", "Jan"},
    {"janv", "Jan"},       {"februar", "Feb"},   {"février", "Feb"},  {"fevrier", "Feb"},
    {"febrero", "Feb"},    {"febbraio", "Feb"},  {"februari", "Feb"}, {"fév", "Feb"},
    {"feber", "Feb"},      {"märz", "Mar"},      {"maerz", "Mar"},    {"mrz", "Mar"},
    {"mär", "Mar"},        {"mars", "Mar"},      {"marzo", "Mar"},    {"maart", "Mar"},
    {"mrt", "Mar"},        {"mÄrz", "Mar"},      {"avril", "Apr"},    {"abril", "Apr"},
    {"aprile", "Apr"},     {"abr", "Apr"},       {"avr", "Apr"},      {"mai", "May"},
    {"mayo", "May"},       {"maggio", "May"},    {"mei", "May"},      {"maj", "May"},
    {"mag", "May"},        {"juni", "Jun"},      {"juin", "Jun"},     {"junio", "Jun"},
    {"giugno", "Jun"},     {"giu", "Jun"},       {"juli", "Jul"},     {"juillet", "Jul"},
    {"julio", "Jul"},      {"luglio", "Jul"},    {"lug", "Jul"},      {"juil", "Jul"},
    {"août", "Aug"},       {"aout", "Aug"},      {"agosto", "Aug"},   {"augustus", "Aug"},
    {"augusti", "Aug"},    {"ago", "Aug"},       {"aoÛt", "Aug"},     {"septembre", "Sep"},
    {"septiembre", "Sep"}, {"settembre", "Sep"}, {"sept", "Sep"},     {"set", "Sep"},
    {"oktober", "Oct"},    {"octobre", "Oct"},   {"octubre", "Oct"},  {"ottobre", "Oct"},
    {"okt", "Oct"},        {"ott", "Oct"},       {"novembre", "Nov"}, {"noviembre", "Nov"},
    {"dezember", "Dec"},   {"décembre", "Dec"},  {"decembre", "Dec"}, {"diciembre", "Dec"},
    {"dicembre", "Dec"},   {"desember", "Dec"},  {"dez", "Dec"},      {"déc", "Dec"},
    {"dic", "Dec"},
});

std::string_view english_name(std::string_view word, std::span<const ForeignName> names) {
  std::string name = lower_case(word);
  if (name.ends_with('.')) {
    name.pop_back();
  }
  for (const ForeignName& known : names) {
    if (name == known.foreign) {
      return known.english;
    }
  }
  return {};
}

}  // namespace

std::string_view english_weekday(std::string_view word) {
  return english_name(word, foreign_weekdays);
}

std::string_view english_month(std::string_view word) {
  return english_name(word, foreign_months);
}
