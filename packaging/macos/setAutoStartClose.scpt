-- Has the program no longer started at login. Plain text, which osascript runs as it is: 0 when that has been done,
-- also when there was nothing to do, else not. The first run asks the user to let it talk to System Events.
property applicationPath : "/Applications/VexaOrbilo.app"

tell application "System Events"
	if exists (first login item whose path is applicationPath) then
		delete (every login item whose path is applicationPath)
	end if
	if exists (first login item whose path is applicationPath) then
		error "The login item is still there." number 1
	end if
end tell
