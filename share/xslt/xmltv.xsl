<?xml version="1.0" encoding="UTF-8"?>
<!--
  Turns the XML document of nv8x_schedule_to_xml into XMLTV, which the guide importers of media
  centres read:

    xsltproc -stringparam channel kbt1.example xmltv.xsl week.xml > week.xmltv

  docs/xmltv.md has the parameters and what becomes of each name of the metadata.
-->
<!DOCTYPE xsl:stylesheet [
  <!ENTITY capitals "'ABCDEFGHIJKLMNOPQRSTUVWXYZ'">
  <!ENTITY small "'abcdefghijklmnopqrstuvwxyz'">
  <!-- The name and the text of a metadata entry, in small letters. -->
  <!ENTITY name "translate(@name, &capitals;, &small;)">
  <!ENTITY text "translate(normalize-space(), &capitals;, &small;)">
  <!-- Of several entries of one name the last that is not blank counts. -->
  <!ENTITY last "[normalize-space()][last()]">
  <!-- The years that XMLTV has room for. -->
  <!ENTITY has-four-digit-year "string-length(.) = 19">
]>
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="xml" encoding="UTF-8" indent="yes" doctype-system="xmltv.dtd"/>

  <xsl:param name="channel"/>
  <xsl:param name="channel-name" select="$channel"/>
  <xsl:param name="language"/>

  <xsl:template match="/">
    <xsl:if test="normalize-space($channel) = ''">
      <xsl:message terminate="yes">Give the channel's id: -stringparam channel ID</xsl:message>
    </xsl:if>
    <xsl:if test="not(schedule/list)">
      <xsl:message terminate="yes">This is not a schedule in XML.</xsl:message>
    </xsl:if>
    <tv generator-info-name="nv8x_schedule_to_xml">
      <channel id="{$channel}">
        <display-name><xsl:value-of select="$channel-name"/></display-name>
      </channel>
      <!-- Seconds of 20 digits are those before 1970. -->
      <xsl:apply-templates select="schedule/list/entry[item/@announce = 1]
                                   [start[&has-four-digit-year;]/@unix != end/@unix]">
        <xsl:sort data-type="number" select="start/@unix
          - 18446744073709551616 * (string-length(start/@unix) = 20)"/>
      </xsl:apply-templates>
    </tv>
  </xsl:template>

  <!-- An item of the schedule. The order of the elements is XMLTV's. -->
  <xsl:template match="list/entry">
    <programme>
      <xsl:call-template name="times"/>
      <xsl:attribute name="channel"><xsl:value-of select="$channel"/></xsl:attribute>
      <xsl:call-template name="titles"/>
      <xsl:call-template name="description"/>
      <xsl:call-template name="credits"/>
      <xsl:apply-templates select="meta/entry[&name; = 'date']&last;" mode="date"/>
      <xsl:call-template name="categories"/>
      <xsl:apply-templates select="meta/entry[&name; = 'language']&last;"
                           mode="text">
        <xsl:with-param name="element" select="'language'"/>
      </xsl:apply-templates>
      <xsl:call-template name="episode-numbers"/>
      <xsl:apply-templates select="meta/entry[&name; = 'hd']&last;" mode="hd"/>
      <xsl:apply-templates select="meta/entry[&name; = 'newliverepeat']&last;" mode="repeat"/>
      <xsl:apply-templates select="meta/entry[&name; = 'cc']&last;" mode="subtitles"/>
      <xsl:apply-templates select="meta/entry[&name; = 'rating']&last;" mode="rating"/>
    </programme>
  </xsl:template>

  <!-- Times -->

  <!-- An end that has no local time, or none after the start, is left out. -->
  <xsl:template name="times">
    <xsl:variable name="start"><xsl:apply-templates select="start" mode="seconds"/></xsl:variable>
    <xsl:variable name="end"><xsl:apply-templates select="end" mode="seconds"/></xsl:variable>
    <xsl:attribute name="start"><xsl:apply-templates select="start" mode="time"/></xsl:attribute>
    <xsl:if test="$end &gt; $start and end[&has-four-digit-year;]">
      <xsl:attribute name="stop"><xsl:apply-templates select="end" mode="time"/></xsl:attribute>
    </xsl:if>
  </xsl:template>

  <!-- Seconds since 1970. A time before has 2 to the power of 64 added, which a number of XPath
       cannot hold exactly: it is taken off in two halves. -->
  <xsl:template match="start | end" mode="seconds">
    <xsl:choose>
      <xsl:when test="string-length(@unix) = 20">
        <xsl:value-of select="(substring(@unix, 1, 14) - 18446744073709) * 1000000
                              + substring(@unix, 15) - 551616"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="@unix"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The local time as if it were UTC, in seconds since 1970. Years are counted from March, so
       that the leap day is their last; 719468 days lie between 1 March 0 and 1970. -->
  <xsl:template match="start | end" mode="local-seconds">
    <xsl:variable name="month" select="number(substring(., 6, 2))"/>
    <xsl:variable name="year" select="substring(., 1, 4) - ($month &lt; 3)"/>
    <xsl:variable name="days" select="365 * $year + floor($year div 4) - floor($year div 100)
      + floor($year div 400) + floor((153 * (($month + 9) mod 12) + 2) div 5)
      + substring(., 9, 2) - 1 - 719468"/>
    <xsl:value-of select="86400 * $days + 3600 * substring(., 12, 2) + 60 * substring(., 15, 2)
                          + substring(., 18, 2)"/>
  </xsl:template>

  <!-- YYYYMMDDhhmmss +hhmm. The offset is that of this moment: it changes with the clocks. -->
  <xsl:template match="start | end" mode="time">
    <xsl:variable name="seconds"><xsl:apply-templates select="." mode="seconds"/></xsl:variable>
    <xsl:variable name="local"><xsl:apply-templates select="." mode="local-seconds"/></xsl:variable>
    <xsl:variable name="offset" select="round(($local - $seconds) div 60)"/>
    <xsl:variable name="minutes" select="$offset - 2 * $offset * ($offset &lt; 0)"/>
    <xsl:value-of select="translate(., '- :', '')"/>
    <xsl:value-of select="concat(' ', substring('+-', 1 + ($offset &lt; 0), 1),
      format-number(floor($minutes div 60), '00'), format-number($minutes mod 60, '00'))"/>
  </xsl:template>

  <!-- Texts -->

  <xsl:template name="lang">
    <xsl:if test="normalize-space($language)">
      <xsl:attribute name="lang"><xsl:value-of select="$language"/></xsl:attribute>
    </xsl:if>
  </xsl:template>

  <xsl:template match="entry" mode="text">
    <xsl:param name="element"/>
    <xsl:element name="{$element}"><xsl:value-of select="normalize-space()"/></xsl:element>
  </xsl:template>

  <xsl:template name="titles">
    <xsl:variable name="program" select="meta/entry[&name; = 'program']&last;"/>
    <xsl:variable name="title" select="meta/entry[&name; = 'title']&last;"/>
    <!-- An episode that is a mere number is one of the episode numbers. -->
    <xsl:variable name="episode" select="meta/entry[&name; = 'episode']&last;
                                         [translate(., ' /0123456789', '')]"/>
    <title>
      <xsl:call-template name="lang"/>
      <xsl:choose>
        <xsl:when test="$program"><xsl:value-of select="normalize-space($program)"/></xsl:when>
        <xsl:when test="$title"><xsl:value-of select="normalize-space($title)"/></xsl:when>
        <xsl:when test="normalize-space(label)">
          <xsl:value-of select="normalize-space(label)"/>
        </xsl:when>
        <xsl:otherwise><xsl:apply-templates select="name" mode="title"/></xsl:otherwise>
      </xsl:choose>
    </title>
    <xsl:for-each select="$episode | $title[$program and not($episode)]
                          [normalize-space() != normalize-space($program)]">
      <sub-title>
        <xsl:call-template name="lang"/>
        <xsl:value-of select="normalize-space()"/>
      </sub-title>
    </xsl:for-each>
  </xsl:template>

  <!-- A file's name without an extension of up to three letters, as the listings have it. -->
  <xsl:template match="name" mode="title">
    <xsl:variable name="length" select="string-length()"/>
    <xsl:variable name="stem">
      <xsl:choose>
        <xsl:when test="substring(., $length) = '.'">
          <xsl:value-of select="substring(., 1, $length - 1)"/>
        </xsl:when>
        <xsl:when test="substring(., $length - 1, 1) = '.'">
          <xsl:value-of select="substring(., 1, $length - 2)"/>
        </xsl:when>
        <xsl:when test="substring(., $length - 2, 1) = '.'">
          <xsl:value-of select="substring(., 1, $length - 3)"/>
        </xsl:when>
        <xsl:when test="substring(., $length - 3, 1) = '.'">
          <xsl:value-of select="substring(., 1, $length - 4)"/>
        </xsl:when>
        <xsl:otherwise><xsl:value-of select="."/></xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:variable name="title" select="normalize-space(
      translate(translate($stem, '&quot;\_', '   '), &quot;'&quot;, ' '))"/>
    <xsl:choose>
      <xsl:when test="$title"><xsl:value-of select="$title"/></xsl:when>
      <xsl:otherwise>(untitled)</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="description">
    <xsl:variable name="description"
                  select="meta/entry[&name; = 'description']&last;"/>
    <xsl:variable name="summary" select="meta/entry[&name; = 'summary']&last;"/>
    <xsl:for-each select="$description | $summary[not($description)]">
      <desc>
        <xsl:call-template name="lang"/>
        <xsl:value-of select="normalize-space()"/>
      </desc>
    </xsl:for-each>
  </xsl:template>

  <xsl:template name="credits">
    <xsl:variable name="people" select="meta/entry[normalize-space()]
      [&name; = 'producers' or &name; = 'hosts' or &name; = 'guests']"/>
    <xsl:if test="$people">
      <credits>
        <xsl:apply-templates select="$people[&name; = 'producers']" mode="text">
          <xsl:with-param name="element" select="'producer'"/>
        </xsl:apply-templates>
        <xsl:apply-templates select="$people[&name; = 'hosts']" mode="text">
          <xsl:with-param name="element" select="'presenter'"/>
        </xsl:apply-templates>
        <xsl:apply-templates select="$people[&name; = 'guests']" mode="text">
          <xsl:with-param name="element" select="'guest'"/>
        </xsl:apply-templates>
      </credits>
    </xsl:if>
  </xsl:template>

  <!-- The year, with month and day where they are known. -->
  <xsl:template match="entry" mode="date">
    <xsl:variable name="date" select="translate(substring(normalize-space(), 1, 10), '-', '')"/>
    <xsl:variable name="length" select="string-length($date)"/>
    <xsl:if test="translate($date, '0123456789', '') = ''
                  and ($length = 4 or $length = 6 or $length = 8)">
      <date><xsl:value-of select="$date"/></date>
    </xsl:if>
  </xsl:template>

  <!-- Each category once. -->
  <xsl:template name="categories">
    <xsl:for-each select="meta/entry[&name; = 'genre' or &name; = 'rovi category']
                          [normalize-space()]">
      <xsl:variable name="category" select="&text;"/>
      <xsl:if test="not(preceding-sibling::entry[&name; = 'genre' or &name; = 'rovi category']
                        [&text; = $category])">
        <category>
          <xsl:call-template name="lang"/>
          <xsl:value-of select="normalize-space()"/>
        </category>
      </xsl:if>
    </xsl:for-each>
  </xsl:template>

  <!-- Numbers and flags -->

  <!-- The number that stands before a "/" or alone; nothing for other texts. -->
  <xsl:template match="entry" mode="number">
    <xsl:variable name="number" select="normalize-space(substring-before(concat(., '/'), '/'))"/>
    <xsl:if test="translate($number, '0123456789', '') = '' and string-length($number) &lt; 16">
      <xsl:value-of select="$number"/>
    </xsl:if>
  </xsl:template>

  <!-- Season and episode, which count from 1; XMLTV's own form counts from 0. -->
  <xsl:template name="episode-numbers">
    <xsl:variable name="season">
      <xsl:apply-templates select="meta/entry[&name; = 'season']&last;" mode="number"/>
    </xsl:variable>
    <xsl:variable name="tagged-episode">
      <xsl:apply-templates select="meta/entry[&name; = 'tvepisode']&last;" mode="number"/>
    </xsl:variable>
    <xsl:variable name="episode">
      <xsl:value-of select="$tagged-episode"/>
      <xsl:if test="$tagged-episode = ''">
        <xsl:apply-templates select="meta/entry[&name; = 'episode']&last;" mode="number"/>
      </xsl:if>
    </xsl:variable>
    <xsl:if test="$season &gt; 0 or $episode &gt; 0">
      <episode-num system="xmltv_ns">
        <xsl:if test="$season &gt; 0"><xsl:value-of select="$season - 1"/></xsl:if>
        <xsl:text>.</xsl:text>
        <xsl:if test="$episode &gt; 0"><xsl:value-of select="$episode - 1"/></xsl:if>
        <xsl:text>.</xsl:text>
      </episode-num>
    </xsl:if>
    <xsl:if test="$season != '' or $episode != ''">
      <episode-num system="onscreen">
        <xsl:if test="$season != ''">
          <xsl:value-of select="concat('S', format-number($season, '00'))"/>
        </xsl:if>
        <xsl:if test="$episode != ''">
          <xsl:value-of select="concat('E', format-number($episode, '00'))"/>
        </xsl:if>
      </episode-num>
    </xsl:if>
  </xsl:template>

  <xsl:template match="entry" mode="hd">
    <xsl:if test="contains('123456789ty', substring(&text;, 1, 1))">
      <video><quality>HDTV</quality></video>
    </xsl:if>
  </xsl:template>

  <xsl:template match="entry" mode="repeat">
    <xsl:if test="&text; = 'repeat'"><previously-shown/></xsl:if>
  </xsl:template>

  <!-- Closed captions are shown at the viewer's request, which XMLTV calls teletext. -->
  <xsl:template match="entry" mode="subtitles">
    <xsl:if test="contains('1ty', substring(&text;, 1, 1))"><subtitles type="teletext"/></xsl:if>
  </xsl:template>

  <!-- What follows the last "/" of a rating is its value, what stands before it its system. -->
  <xsl:template match="entry" mode="rating">
    <xsl:param name="system"/>
    <xsl:param name="value" select="normalize-space()"/>
    <xsl:choose>
      <xsl:when test="contains($value, '/')">
        <xsl:apply-templates select="." mode="rating">
          <xsl:with-param name="system" select="concat($system,
            substring('/', 1, $system != ''), substring-before($value, '/'))"/>
          <xsl:with-param name="value" select="substring-after($value, '/')"/>
        </xsl:apply-templates>
      </xsl:when>
      <xsl:when test="$value">
        <rating>
          <xsl:if test="$system"><xsl:attribute name="system">
            <xsl:value-of select="$system"/>
          </xsl:attribute></xsl:if>
          <value><xsl:value-of select="$value"/></value>
        </rating>
      </xsl:when>
    </xsl:choose>
  </xsl:template>
</xsl:stylesheet>
