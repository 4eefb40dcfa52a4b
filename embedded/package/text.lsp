;; Texts and lists of texts.

;; The parts of a text between marks; one part when there is no mark.
(defun ryp-split (text mark / parts at)
  (while (setq at (vl-string-search mark text))
    (setq parts (cons (substr text 1 at) parts)
          text (substr text (+ at 1 (strlen mark)))))
  (reverse (cons text parts)))

;; All texts in one, with a mark between them.
(defun ryp-join (texts mark / joined)
  (setq joined (if texts (car texts) ""))
  (foreach text (cdr texts)
    (setq joined (strcat joined mark text)))
  joined)

;; A text with every occurrence of one part replaced, from left to right.
(defun ryp-replace (text old new)
  (ryp-join (ryp-split text old) new))

(defun ryp-trim (text)
  (vl-string-trim " \t\r\n" text))

(defun ryp-starts (text start)
  (= (substr text 1 (strlen start)) start))

(defun ryp-ends (text end / at)
  (setq at (- (strlen text) (strlen end)))
  (and (>= at 0) (= (substr text (1+ at)) end)))

;; Whether two texts are the same but for capitals.
(defun ryp-same (a b)
  (= (strcase a) (strcase b)))

;; What stands in front of the first mark, and what stands behind it; the whole text when there is no mark.
(defun ryp-until (text mark / at)
  (if (setq at (vl-string-search mark text))
    (substr text 1 at)
    text))

(defun ryp-after (text mark / at)
  (if (setq at (vl-string-search mark text))
    (substr text (+ at 1 (strlen mark)))
    text))

;; A list without its empty texts at the end.
(defun ryp-without-empty-end (texts)
  (setq texts (reverse texts))
  (while (and texts (= (car texts) ""))
    (setq texts (cdr texts)))
  (reverse texts))

;; Texts once each, without regard to case, in the order in which they come first; empty ones are dropped.
(defun ryp-distinct (texts / kept keys key)
  (foreach text texts
    (setq key (strcase text))
    (if (not (or (= key "") (member key keys)))
      (setq keys (cons key keys)
            kept (cons text kept))))
  (reverse kept))

;; The first values of a list, `count` of them; the list is filled up with empty texts.
(defun ryp-take (values count / taken)
  (repeat count
    (setq taken (cons (if values (car values) "") taken)
          values (cdr values)))
  (reverse taken))

;; A text by which "Sheet 9" sorts in front of "sheet 10": in capitals, each number with ten digits.
(defun ryp-sort-key (text / key digits letter)
  (setq key "" digits "")
  (while (/= text "")
    (setq letter (substr text 1 1)
          text (substr text 2))
    (if (wcmatch letter "#")
      (setq digits (strcat digits letter))
      (setq key (strcat key (ryp-padded digits) (strcase letter))
            digits "")))
  (strcat key (ryp-padded digits)))

(defun ryp-padded (digits)
  (if (/= digits "")
    (while (< (strlen digits) 10)
      (setq digits (strcat "0" digits))))
  digits)

;; The values of a list in the order of their keys; equal keys keep their order. `key` makes a text of a
;; value.
(defun ryp-sorted (values key / entries place)
  (setq place 0)
  (foreach value values
    (setq entries (cons (list (apply key (list value)) place value) entries)
          place (1+ place)))
  (mapcar 'caddr (vl-sort (reverse entries) 'ryp-entry-before)))

(defun ryp-entry-before (a b)
  (if (= (car a) (car b))
    (< (cadr a) (cadr b))
    (< (car a) (car b))))

(defun ryp-print (text)
  (princ (strcat text "\n"))
  nil)
