-- Has the program started at login. Plain text, which osascript runs as it is: 0 when that has been done, else not.
-- The first run asks the user to let it talk to System Events.
property applicationPath : "/Applications/VexaOrbilo.app"

tell application "System Events"
	if not (exists (first login item whose path is applicationPath)) then
		make new login item at end of login items with properties {path:applicationPath, hidden:false}
	end if
	if not (exists (first login item whose path is applicationPath)) then
		error "The login item was not made." number 1
	end if
end tell
