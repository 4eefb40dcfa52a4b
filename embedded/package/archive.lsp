;; The project's archive: a zip file of the project file, what stands beside it under its name, and the
;; drawings.

;; Archives the selected drawings, or all of the project, with the project's own files. Mode 0 writes
;; PROJECT.zip beside the project, any other asks for the file. The path of the archive, or nil.
(defun c:kq_zip_do_kqzip (mode / selected project target)
  (setq selected (ryp-take-selection))
  (if (setq project (ryp-project))
    (progn
      (setq target (ryp-beside-project (car project) ".zip"))
      (if (/= mode 0)
        (setq target (choose-file 5002 (ryp-message "archive" nil) (path-folder (car project)) ".zip" T)))
      (if target
        (ryp-archive (car project) (ryp-chosen-drawings selected (ryp-project-drawings project)) target)))))

(defun ryp-archive (path drawings target / files)
  (setq files (ryp-archive-files path (append (ryp-companions path) (mapcar 'ryp-drawing-file drawings))))
  (if (zip-write target files)
    (progn
      (ryp-tell "archive-done" (list (path-native target) (itoa (length files))))
      target)))

(defun ryp-drawing-file (drawing)
  (ryp-field drawing 'path))

;; The project file, its companion and its title-block mapping, as far as they are there.
(defun ryp-companions (path)
  (cons path
    (vl-remove-if-not 'file-exists
      (mapcar '(lambda (ending) (ryp-beside-project path ending)) '(".rypx" ".kqt")))))

;; ((FILE . NAME) ...) of the files that are there, each once; missing ones are named.
(defun ryp-archive-files (path files / folder names name pairs)
  (setq folder (path-folder path))
  (foreach file files
    (setq name (ryp-archive-name file folder names))
    (cond
      ((assoc file pairs) nil)
      ((file-exists file)
        (setq names (cons (strcase name) names)
              pairs (cons (cons file name) pairs)))
      (T (ryp-tell "archive-missing" (list (path-native file))))))
  (reverse pairs))

;; A file's name in the archive: its path in the project's folder, or, for one that lies elsewhere, its
;; name in "outside/", with a number in front when that is taken.
(defun ryp-archive-name (file folder names / name number tried)
  (setq name (path-relative folder file)
        number 1)
  (if (and name (not (ryp-starts name "..")) (not (wcmatch name "\\*,?:*")))
    (ryp-slashes name)
    (progn
      (setq tried (strcat "outside/" (path-name file)))
      (while (member (strcase tried) names)
        (setq number (1+ number)
              tried (strcat "outside/" (itoa number) " " (path-name file))))
      tried)))
