// The peer of the load time: a module with nothing in it.
