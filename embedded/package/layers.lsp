;; Wire layers. A drawing's settings name its wire layers; the layers themselves are made by the host's
;; layer command.

;; Adds names to the wire layers that the settings of the current document's drawing list; `kind` is 0 for
;; wire layers, for others the request is printed only. Nothing is saved. T when all names are in the list.
(defun kq_cfg_add_lay (kind names)
  (if (= kind 0)
    (ryp-with-current-drawing 'ryp-add-wire-layers)
    (ryp-tell "layers-of-kind" (list (itoa kind) (ryp-join names ",")))))

(defun ryp-add-wire-layers (drawing / present all)
  (if (ryp-find-block drawing "KQ_M")
    (progn
      (setq present (cond ((dwg-get drawing "WIRELAYS")) (""))
            all (ryp-join (ryp-distinct (mapcar 'ryp-trim (append (ryp-split present ",") names))) ","))
      (or (= all present) (dwg-set drawing "WIRELAYS" all)))
    (ryp-tell "no-settings" nil)))

;; Sets up wire layers: (NUMBER (NAME VALUE ...) ...). The names go to the wire layers of the drawing, and
;; what else is asked for each layer is printed. A list without a name asks for nothing.
(defun kq_cfg_setup_wlay_doit (request / layers)
  (setq layers (vl-remove-if '(lambda (layer) (member (car layer) '(nil ""))) (cdr request)))
  (foreach layer layers
    (ryp-tell "wire-layer" (list (car layer) (ryp-join (cdr layer) ","))))
  (kq_cfg_add_lay 0 (mapcar 'car layers)))

;; Asks for names of wire layers, with commas, and sets them up.
(defun kq_cfg_setup_wlay (/ names)
  (if (setq names (ryp-ask-text "wire_layers" "wire-layers" ""))
    (kq_cfg_setup_wlay_doit (cons 0 (mapcar 'list (ryp-distinct (mapcar 'ryp-trim (ryp-split names ","))))))))
