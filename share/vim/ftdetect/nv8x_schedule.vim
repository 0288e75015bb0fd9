autocmd BufNewFile,BufRead *.schedule setfiletype nv8x_schedule
