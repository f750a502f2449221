old
