;; Readable data files: a line is NAME=VALUE, a comment (it begins with ";"), a heading ([NAME]) or empty.

;; All lines of a file; nil when it cannot be opened or is empty.
(defun ryp-lines (file / stream line lines)
  (if (and file (setq stream (open file "r")))
    (progn
      (while (setq line (read-line stream))
        (setq lines (cons line lines)))
      (close stream)))
  (reverse lines))

;; Writes a file anew; T, or nil with the reason printed.
(defun ryp-write-lines (file lines end / stream)
  (cond
    ((setq stream (open file "w"))
      (foreach line lines
        (princ (strcat line end) stream))
      (close stream)
      T)
    (T (ryp-tell "not-written" (list (path-native file))))))

;; (NAME . VALUE) of a line, both without blanks around them; nil for a line of another kind.
(defun ryp-setting-in (line / at)
  (setq line (ryp-trim line))
  (if (and (/= line "") (/= (substr line 1 1) ";") (setq at (vl-string-search "=" line)))
    (cons (ryp-trim (substr line 1 at)) (ryp-trim (substr line (+ at 2))))))

;; The settings of a file in their order: ((NAME . VALUE) ...).
(defun ryp-table (file / entry entries)
  (foreach line (ryp-lines file)
    (if (setq entry (ryp-setting-in line))
      (setq entries (cons entry entries))))
  (reverse entries))

;; The files of a name that count, the user's own first, then the one that came with the package.
(defun ryp-data-files (name / files file)
  (foreach folder (list RYP_FOLDER (profile-folder))
    (setq file (path-combine folder name))
    (if (file-exists file)
      (setq files (cons file files))))
  files)

;; The settings of all files of a name, the user's own first, so that (assoc) finds these.
(defun ryp-layered-table (name)
  (apply 'append (mapcar 'ryp-table (ryp-data-files name))))
