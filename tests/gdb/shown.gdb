set debuginfod enabled off
set width 0
set print pretty on
break look
run
echo \nSHOWN\n
print line
print gone
print none
print names
print flags
print text
