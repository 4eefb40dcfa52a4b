;; The package's environment: names of folders and choices, in "environment.txt".

;; The settings of one file. A value that begins with "./" is a path in the folder of the file.
(defun ryp-environment-of (file / folder)
  (setq folder (path-folder file))
  (mapcar
    '(lambda (entry)
       (if (ryp-starts (cdr entry) "./")
         (cons (car entry) (path-combine folder (substr (cdr entry) 3)))
         entry))
    (ryp-table file)))

;; Read once for each document, when it is first asked for.
(defun ryp-environment ()
  (if (null RYP_ENVIRONMENT)
    (setq RYP_ENVIRONMENT
      (cons '("" . "") (apply 'append (mapcar 'ryp-environment-of (ryp-data-files "environment.txt"))))))
  RYP_ENVIRONMENT)

;; The value of a name: from the file, else from the system's environment, else empty.
(defun c:kq_getenv (name)
  (cond
    ((cdr (assoc (strcase name) (ryp-environment))))
    ((getenv name))
    ("")))
