" Vim syntax file: schedule files of a television channel, nv8x_schedule(5)

if exists('b:current_syntax')
  finish
endif
syntax case match

syntax match nv8xComment /^\s*#.*/

" Nothing may stand behind the word, and nothing else behind the star.
syntax match nv8xBadType /^\s*\*.*/
syntax match nv8xType /^\s*\*\(daily\|weekly\|monthly\|yearly\|endless\)\r\=$/

syntax match nv8xGlobalDefault /^\s*=\=\s*global default\ze\s*[=:]/ nextgroup=nv8xValue skipwhite

" A section begins on a line of its own and ends at a line that begins with a brace.
syntax region nv8xItem matchgroup=nv8xBrace start=/^\s*{\s*$/ end=/^\s*}/
  \ contains=nv8xComment,nv8xKey,nv8xTimeKey
syntax region nv8xBlock matchgroup=nv8xSection start=/^\s*schedule block\s*{\s*$/ end=/^\s*}/
  \ contains=nv8xComment,nv8xBlockKey,nv8xTimeKey
syntax region nv8xDefaults matchgroup=nv8xSection start=/^\s*defaults,[^={]*{\s*$/ end=/^\s*}/
  \ contains=nv8xComment,nv8xDay

" Keys are in lower case and known, or they are of no effect and stay without colour.
syntax match nv8xKey /^\s*\(item duration\|item\|label\|event id\|block\)\ze\s*=/ contained
  \ nextgroup=nv8xValue skipwhite
syntax match nv8xBlockKey /^\s*\(block\|announce\)\ze\s*=/ contained nextgroup=nv8xValue skipwhite
syntax match nv8xTimeKey /^\s*\(start\|end\)\ze\s*=/ contained nextgroup=nv8xTime skipwhite
syntax match nv8xDay
  \ /^\s*\(day\|sun\|mon\|tue\|wed\|thu\|fri\|sat\|dom\d\|m\s*+\=\d\|y\s*+\=\d\)[^=\[]*\ze=/
  \ contained nextgroup=nv8xValue skipwhite
syntax match nv8xValue /[=:].*/ contained contains=nv8xEquals
syntax match nv8xTime /=.*/ contained contains=nv8xEquals
syntax match nv8xEquals /\%(^[^=:]*\)\@<=[=:]/ contained

" A section may be longer than the part of the file that Vim looks back at.
syntax sync fromstart

highlight default link nv8xComment Comment
highlight default link nv8xBadType Error
highlight default link nv8xType PreProc
highlight default link nv8xGlobalDefault Identifier
highlight default link nv8xSection Statement
highlight default link nv8xBrace Statement
highlight default link nv8xKey Identifier
highlight default link nv8xBlockKey Identifier
highlight default link nv8xTimeKey Identifier
highlight default link nv8xDay Identifier
highlight default link nv8xValue String
highlight default link nv8xTime Number
highlight default link nv8xEquals Operator

let b:current_syntax = 'nv8x_schedule'
