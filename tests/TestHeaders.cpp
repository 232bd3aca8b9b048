// Has nothing of its own: the headers that all tests read are compiled beside it.
