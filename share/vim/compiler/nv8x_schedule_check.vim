" Vim compiler file: findings of nv8x_schedule_check in the quickfix list.
" :make checks the file of the window; words behind it are options, as in :make --no-media

if exists('current_compiler')
  finish
endif
let current_compiler = 'nv8x_schedule_check'

CompilerSet makeprg=nv8x_schedule_check\ $*\ --\ %:S
" The last pattern drops what is no finding, such as the count behind the first hundred.
CompilerSet errorformat=%f:%l:%c:\ %trror:\ %m,%f:%l:%c:\ %tarning:\ %m,%f:%l:%c:\ %tote:\ %m,%-G%.%#
