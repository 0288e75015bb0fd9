#include "import/column_names.hpp"

#include <algorithm>
#include <array>

#include "import/folded_word.hpp"
#include "platform/syntax/text.hpp"

namespace {

// English, German, French and Spanish, as folded_word writes them. A word stands once in the table.
constexpr std::array<ColumnName, 12> columns = {{
    {TableColumn::kind, "kind",
     "kind,row kind,type,row type,"
     "art,typ,zeilenart,genre de ligne,type de ligne,clase,tipo,tipo de fila"},
    {TableColumn::day, "day",
     "day,days,weekday,weekdays,day of week,day of the week,"
     "tag,tage,wochentag,wochentage,jour,jours,jour de la semaine,dia,dias,dia de la semana"},
    {TableColumn::date, "date",
     "date,dates,air date,tx date,"
     "datum,daten,sendedatum,sendetag,date de diffusion,fecha,fechas,fecha de emision"},
    {TableColumn::start, "start",
     "start,starts,start time,begin,begins,begin time,from,time,air time,on air,tx time,"
     "beginn,anfang,startzeit,anfangszeit,sendezeit,uhrzeit,zeit,von,"
     "debut,heure,heure de debut,inicio,comienzo,hora,hora de inicio,desde"},
    {TableColumn::end, "end",
     "end,ends,end time,stop,stop time,until,till,to,finish,off air,"
     "ende,endzeit,schluss,bis,fin,heure de fin,jusqu'a,hora de fin,hora final,hasta"},
    {TableColumn::duration, "duration",
     "duration,length,slot,slot length,"
     "dauer,lange,laenge,sendedauer,sendelange,sendelaenge,"
     "duree,longueur,duracion,longitud"},
    {TableColumn::item, "item",
     "item,items,file,file name,filename,media,media file,clip,path,asset,"
     "datei,dateiname,dateipfad,mediendatei,pfad,"
     "fichier,nom de fichier,nom du fichier,chemin,element,"
     "archivo,nombre de archivo,nombre del archivo,fichero,ruta,elemento"},
    {TableColumn::label, "label",
     "label,labels,caption,"
     "bezeichnung,beschriftung,libelle,etiquette,etiqueta,rotulo"},
    {TableColumn::block, "block",
     "block,programme block,program block,schedule block,"
     "sendeblock,programmblock,bloc,bloc de programmes,bloque,bloque de programas"},
    {TableColumn::event_id, "event id",
     "event id,eventid,event,event number,"
     "ereignis,ereignis id,ereignisnummer,evenement,id evenement,numero d'evenement,"
     "evento,id de evento,id evento,numero de evento"},
    {TableColumn::item_duration, "item duration",
     "item duration,media duration,clip duration,file duration,running time,runtime,"
     "laufzeit,mediendauer,dateidauer,duree du fichier,duree du media,"
     "duracion del archivo,duracion del elemento"},
    {TableColumn::announce, "announce",
     "announce,announced,announcement,"
     "ankundigung,ankuendigung,ankundigen,ankuendigen,annonce,annoncer,anuncio,anunciar"},
}};

struct UnitName {
  int seconds;
  std::string_view words;
};

constexpr std::array<UnitName, 3> units = {{
    {1, "s,sec,secs,second,seconds,sek,sekunden,secondes,seg,segundos"},
    {60, "min,mins,minute,minutes,minuten,minutos"},
    {3600, "h,hour,hours,stunden,std,heures,horas"},
}};

struct KindName {
  RowKind kind;
  std::string_view name;
  std::string_view words;
};

constexpr std::array<KindName, 5> kinds = {{
    {RowKind::item, "item",
     "item,programme,program,sendung,beitrag,emission,programa,elemento,element"},
    {RowKind::block, "block", "block,schedule block,sendeblock,programmblock,bloc,bloque"},
    {RowKind::day_default, "default",
     "default,day default,standard,vorgabe,defaut,par defaut,predeterminado,por defecto"},
    {RowKind::global_default, "global default",
     "global default,globale vorgabe,globaler standard,defaut global,predeterminado global"},
    {RowKind::type, "type", "type,schedule type,typ,tipo"},
}};

struct MetadataName {
  std::string_view name;
  std::string_view words;
};

constexpr std::array<MetadataName, 9> metadata_names = {{
    {"title", "title,titel,titre,titulo"},
    {"description", "description,beschreibung,inhalt,descripcion"},
    {"summary", "summary,zusammenfassung,kurztext,resume,resumen"},
    {"rating", "rating,altersfreigabe,fsk,classification,clasificacion"},
    {"genre", "genre,genero"},
    {"program", "program,programme,series,sendereihe,serie,programa"},
    {"episode", "episode,folge,episodio,capitulo"},
    {"artist", "artist,kunstler,kuenstler,artiste,artista"},
    {"year", "year,jahr,annee,ano"},
}};

}  // namespace

std::span<const ColumnName> column_names() {
  return columns;
}

std::string_view name_of(TableColumn column) {
  return columns.at(static_cast<size_t>(column)).name;
}

std::optional<TableColumn> find_column(std::string_view header) {
  const std::string word = folded_word(header);
  const NumberUnit unit = number_unit_of(word);
  for (const ColumnName& name : columns) {
    const bool has_unit =
        name.column == TableColumn::duration || name.column == TableColumn::item_duration;
    if (is_listed_word(has_unit ? unit.header : word, name.synonyms)) {
      return name.column;
    }
  }
  return std::nullopt;
}

NumberUnit number_unit_of(std::string_view folded_header) {
  std::string_view text = folded_header;
  if (text.ends_with(')') || text.ends_with(']')) {
    text.remove_suffix(1);
  }
  const size_t behind = text.find_last_of(" ([");
  const std::string_view word = behind == std::string_view::npos ? "" : text.substr(behind + 1);
  for (const UnitName& unit : units) {
    if (is_listed_word(word, unit.words)) {
      text = text.substr(0, text.find_last_not_of(" ([", behind) + 1);
      for (const std::string_view in : {" in", " en"}) {
        text.remove_suffix(text.ends_with(in) ? in.size() : 0);
      }
      return {text, unit.seconds};
    }
  }
  return {folded_header, 0};
}

std::optional<RowKind> find_row_kind(std::string_view cell) {
  const std::string word = folded_word(cell);
  if (word.empty()) {
    return RowKind::item;
  }
  for (const KindName& kind : kinds) {
    if (is_listed_word(word, kind.words)) {
      return kind.kind;
    }
  }
  return std::nullopt;
}

std::string_view name_of(RowKind kind) {
  return kinds.at(static_cast<size_t>(kind)).name;
}

std::string metadata_name_of(std::string_view header) {
  const std::string word = folded_word(header);
  for (const MetadataName& name : metadata_names) {
    if (is_listed_word(word, name.words)) {
      return std::string(name.name);
    }
  }
  return lower_case(strip_blanks(header));
}

bool is_metadata_name(std::string_view name) {
  return std::ranges::find(metadata_names, name, &MetadataName::name) != metadata_names.end();
}
