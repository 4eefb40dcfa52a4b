;; Sorting drawings.

(setq ryp-sort-kinds '("sheet" "file name" "section" "sub-section" "description"))

;; Asks by what to sort and puts the project file's drawings into that order; T, or nil when the user
;; cancels or the file cannot be written. `chosen` holds paths of drawings and traces of subfolders ("" for
;; the top level), whose drawings it stands for; nil is all. Drawings stay in their subfolders and change
;; places with their neighbours only.
(defun c:ryv_sort_dlst (mode path chosen / content answers keys)
  (if (and (setq content (project-read path)) (setq answers (ryp-ask-sorting)))
    (progn
      (setq keys (list (ryp-answer answers "first") (ryp-answer answers "second")))
      (ryp-write-entries path
        (ryp-sort-entries (ryp-entries path content) (ryp-chosen-test path chosen) keys
          (= (ryp-answer answers "descending") "1"))))))

(defun ryp-ask-sorting ()
  (ryp-ask "sort_drawings" "sort"
    (list
      (ryp-choice "first" "sort-first" "sheet" ryp-sort-kinds)
      (ryp-choice "second" "sort-second" "file name" ryp-sort-kinds)
      (ryp-check "descending" "sort-descending" "0"))))

;; The chosen paths and traces in capitals; T for all.
(defun ryp-chosen-test (path chosen)
  (if chosen
    (mapcar 'strcase chosen)
    T))

(defun ryp-is-chosen (entry chosen)
  (and (ryp-field entry 'path)
       (or (= chosen T)
           (member (strcase (ryp-field entry 'path)) chosen)
           (member (ryp-field entry 'trace) chosen))))

;; The entries with the chosen ones sorted, level by level, each level among its own places. Places and
;; drawings are brought into the same order of levels, and then dealt out one by one.
(defun ryp-sort-entries (entries chosen keys descending / number rest places drawings)
  (setq number 0)
  (foreach entry entries
    (if (ryp-is-chosen entry chosen)
      (setq places (cons (cons number (ryp-field entry 'trace)) places)
            drawings (cons entry drawings))
      (setq rest (cons (cons number entry) rest)))
    (setq number (1+ number)))
  (setq drawings (ryp-sorted (reverse drawings) '(lambda (entry) (ryp-level-key entry keys))))
  (setq places
    (if descending
      (reverse (ryp-sorted places 'cdr))
      (ryp-sorted (reverse places) 'cdr)))
  (mapcar 'cdr
    (vl-sort
      (append rest
        (mapcar '(lambda (place entry) (cons (car place) entry))
          places
          (if descending (reverse drawings) drawings)))
      '(lambda (a b) (< (car a) (car b))))))

(defun ryp-level-key (entry kinds)
  (strcat (ryp-field entry 'trace) "\t" (ryp-drawing-key entry kinds)))

;; The text by which a drawing is sorted.
(defun ryp-drawing-key (entry kinds)
  (ryp-join (mapcar '(lambda (kind) (ryp-sort-key (ryp-sort-value entry kind))) kinds) "\t"))

(defun ryp-sort-value (entry kind)
  (cond
    ((= kind "sheet") (ryp-setting (ryp-settings-of-file (ryp-field entry 'path)) "SHEET"))
    ((= kind "section") (ryp-text-field entry 'section))
    ((= kind "sub-section") (ryp-text-field entry 'sub-section))
    ((= kind "description") (ryp-join (ryp-field entry 'descriptions) " "))
    (T (path-name (ryp-field entry 'path)))))
