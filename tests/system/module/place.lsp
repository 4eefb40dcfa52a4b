;; Where the palettes stand at first, on screens of different sizes; in the background they are not shown.
(command "PALETTES")
(command "RYVNAV")
(command "PALETTES")
