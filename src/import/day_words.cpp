#include "import/day_words.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "import/folded_word.hpp"
#include "platform/syntax/nearest_word.hpp"

namespace {

// "dom" is a Spanish Sunday unless a number follows it.
constexpr std::array<std::string_view, 7> weekday_words = {
    "sun,sunday,sundays,so,sonntag,sonntags,dim,dimanche,dom,domingo",
    "mon,monday,mondays,mo,montag,montags,lun,lundi,lunes",
    "tue,tues,tuesday,tuesdays,di,dienstag,dienstags,mar,mardi,martes",
    "wed,wednesday,wednesdays,mi,mittwoch,mittwochs,mer,mercredi,mie,miercoles",
    "thu,thur,thurs,thursday,thursdays,do,donnerstag,donnerstags,jeu,jeudi,jue,jueves",
    "fri,friday,fridays,fr,freitag,freitags,ven,vendredi,vie,viernes",
    "sat,saturday,saturdays,sa,samstag,samstags,sonnabend,sonnabends,sam,samedi,sab,sabado",
};

struct WeekdayGroup {
  WeekdaySet days;
  std::string_view phrases;
};

constexpr std::array<WeekdayGroup, 3> weekday_groups = {{
    {all_weekdays,
     "daily,every day,everyday,all days,all,taglich,taeglich,jeden tag,alle tage,"
     "tous les jours,chaque jour,quotidien,todos los dias,cada dia,diario,diariamente"},
    {0x3e,
     "weekdays,weekday,working days,workdays,werktags,werktage,wochentags,"
     "jours ouvres,en semaine,laborables,dias laborables,entre semana"},
    {0x41,
     "weekends,weekend,week end,week ends,wochenende,wochenenden,am wochenende,"
     "le week end,fin de semana,fines de semana"},
}};

constexpr std::array<std::string_view, 12> month_words = {
    "jan,january,januar,janner,jaenner,janvier,janv,enero,ene",
    "feb,february,februar,fevrier,fevr,fev,febrero",
    "mar,march,marz,maerz,mrz,mars,marzo",
    "apr,april,avril,avr,abril,abr",
    "may,mai,mayo",
    "jun,june,juni,juin,junio",
    "jul,july,juli,juillet,juil,julio",
    "aug,august,aout,agosto,ago",
    "sep,sept,september,septembre,septiembre,setiembre",
    "oct,october,okt,oktober,octobre,octubre",
    "nov,november,novembre,noviembre",
    "dec,december,dez,dezember,decembre,diciembre,dic",
};

constexpr std::array<std::string_view, 5> ordinal_words = {
    "first,erster,ersten,erste,premier,premiere,primer,primero",
    "second,zweiter,zweiten,zweite,deuxieme,segundo",
    "third,dritter,dritten,dritte,troisieme,tercer,tercero",
    "fourth,vierter,vierten,vierte,quatrieme,cuarto",
    "fifth,funfter,funften,funfte,cinquieme,quinto",
};

std::optional<int> place_of_word(std::span<const std::string_view> lists, std::string_view word) {
  for (size_t place = 0; place < lists.size(); ++place) {
    if (is_listed_word(word, lists[place])) {
      return static_cast<int>(place);
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<int> find_weekday_word(std::string_view word) {
  return place_of_word(weekday_words, word);
}

std::optional<WeekdaySet> find_weekday_group(std::string_view phrase) {
  for (const WeekdayGroup& group : weekday_groups) {
    if (is_listed_word(phrase, group.phrases)) {
      return group.days;
    }
  }
  return std::nullopt;
}

std::string advice_on_day_word(std::string_view word) {
  constexpr size_t shortest = 5;  // a shorter word is near to too many others
  if (find_month_word(word)) {
    return {};  // it is right, and something else is wrong
  }
  std::vector<std::string_view> words;
  const auto add = [&](std::string_view list) {
    while (!list.empty()) {
      const std::string_view one = list.substr(0, list.find(','));
      if (one.size() >= shortest) {
        words.push_back(one);
      }
      list.remove_prefix(std::min(one.size() + 1, list.size()));
    }
  };
  std::ranges::for_each(weekday_words, add);
  for (const WeekdayGroup& group : weekday_groups) {
    add(group.phrases);
  }
  return did_you_mean(word, words);
}

std::optional<int> find_month_word(std::string_view word) {
  const std::optional<int> place = place_of_word(month_words, word);
  return place ? std::optional(*place + 1) : std::nullopt;
}

std::optional<int> find_ordinal_word(std::string_view word) {
  if (is_listed_word(word, "last,letzter,letzten,letzte,dernier,derniere,ultimo")) {
    return -1;
  }
  const std::optional<int> place = place_of_word(ordinal_words, word);
  return place ? std::optional(*place + 1) : std::nullopt;
}

bool is_ordinal_ending(std::string_view word) {
  return is_listed_word(word, "st,nd,rd,th,er,ere,e,eme,o");
}

bool is_range_word(std::string_view word) {
  return is_listed_word(word, "to,through,thru,until,bis,au,a,hasta,al");
}

bool is_list_word(std::string_view word) {
  return is_listed_word(word, "and,und,et,y");
}

bool is_date_filler(std::string_view word) {
  return is_listed_word(word, "the,of,de,del,le,el,der,den,du,im");
}
