x.print(); obj.import_; a.if.b; .for
node.exec ("x"); 1.if; ...in
x . print
