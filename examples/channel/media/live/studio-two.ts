Studio two: switched through by hand.
